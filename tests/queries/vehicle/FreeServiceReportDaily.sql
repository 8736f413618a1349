-- the free service bills of one model
--
-- call FreeServiceReportDaily as service_bills
-- Vehicle_id = 5
select desr1.desr_id, desr1.date, desr1.related_id as voucher_id, desr1.optional, desr1.prefix, desr1.desrrefno as refno, desr1.suffix, vouchertype1.vouchertype, terms1.despatchto as buyername, terms1.registrationnumber, terms1.servicetype, desr1.totalamount/1 as totalbill, mechanicname.mechanicname from terms1 inner join desr1 on desr1.desr_id = terms1.desr_id and desr1.deleted = 0 inner join vouchertype1 on vouchertype1.vouchertype_id = desr1.vouchertype_id left join mechanicname on mechanicname.mechanic_id = terms1.mechanic_id where vouchertype1.subrelatedto = 39 and terms1.servicetype_id in (3,5,7,9,11,13) and terms1.vehicle_id = 5 and desr1.date between '04/01/2003' and '03/31/2004'
