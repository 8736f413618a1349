-- of one mechanic with their lines
--
-- call MechanicLabourReportDaily as labour_bills
-- btTypeOfReport = 2
-- Item_id = 5
-- Mechanic_id = 3
-- blnDetailed = true
select desr1.desr_id, desr1.date, desr1.related_id as voucher_id, desr1.optional, desr1.prefix, desr1.desrrefno as refno, desr1.suffix, vouchertype1.vouchertype, terms1.despatchto as buyername, terms1.registrationnumber, terms1.servicetype, desr1.totalamount/1 as totalbill, mechanicname.mechanicname, (select sum(desrdetails1.qtydespout * desrdetails1.price) from desrdetails1 where desrdetails1.desr_id = desr1.desr_id and desrdetails1.item_id = 5)/1 as labourbill, desrdetails1.item_id, desrdetails1.qtydespout, desrdetails1.price, desrdetails1.desrdetails_id from terms1 inner join desr1 on desr1.desr_id = terms1.desr_id and desr1.deleted = 0 inner join vouchertype1 on vouchertype1.vouchertype_id = desr1.vouchertype_id left join mechanicname on mechanicname.mechanic_id = terms1.mechanic_id inner join desrdetails1 on desrdetails1.desr_id = desr1.desr_id where vouchertype1.subrelatedto = 39 and terms1.mechanic_id = 3 and desr1.desr_id in (select desrdetails1.desr_id from desrdetails1 where desrdetails1.item_id = 5) and desr1.date between '04/01/2003' and '03/31/2004'
