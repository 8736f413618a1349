-- the bills with one labour item, and its labour, under all document filters, in thousands
--
-- set filter strVouchertypeFilter = Vouchertype1.Vouchertype_id in (7,10,12)
-- set filter btTypeOfentry = 1
-- set filter OptNo = 1
-- call MechanicLabourReportDaily as labour_bills
-- btTypeOfReport = 2
-- Item_id = 5
-- sngScale = 1000
select desr1.desr_id, desr1.date, desr1.related_id as voucher_id, desr1.optional, desr1.prefix, desr1.desrrefno as refno, desr1.suffix, vouchertype1.vouchertype, terms1.despatchto as buyername, terms1.registrationnumber, terms1.servicetype, desr1.totalamount/1000 as totalbill, mechanicname.mechanicname, (select sum(desrdetails1.qtydespout * desrdetails1.price) from desrdetails1 where desrdetails1.desr_id = desr1.desr_id and desrdetails1.item_id = 5)/1000 as labourbill from terms1 inner join desr1 on desr1.desr_id = terms1.desr_id and desr1.deleted = 0 inner join vouchertype1 on vouchertype1.vouchertype_id = desr1.vouchertype_id left join mechanicname on mechanicname.mechanic_id = terms1.mechanic_id where vouchertype1.vouchertype_id in (7,10,12) and desr1.optional = 0 and desr1.desr_id in (select d.desr_id from desr1 as d inner join ledgernames1 on ledgernames1.ledger_id = d.ledger_id inner join subgroupname1 on subgroupname1.subgroup_id = ledgernames1.subgroup_id  and (subgroupname1.code=2 or subgroupname1.code=1 or subgroupname1.code =41)) and desr1.desr_id in (select desrdetails1.desr_id from desrdetails1 where desrdetails1.item_id = 5) and desr1.date between '04/01/2003' and '03/31/2004'
