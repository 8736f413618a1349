-- under all document filters, in thousands
--
-- set filter strVouchertypeFilter = Vouchertype1.Vouchertype_id in (7,10,12)
-- set filter btTypeOfentry = 1
-- set filter OptNo = 1
-- call FreeServiceReportDaily as service_bills
-- Vehicle_id = 5
-- blnDetailed = true
-- sngScale = 1000
select desr1.desr_id, desr1.date, desr1.related_id as voucher_id, desr1.optional, desr1.prefix, desr1.desrrefno as refno, desr1.suffix, vouchertype1.vouchertype, terms1.despatchto as buyername, terms1.registrationnumber, terms1.servicetype, desr1.totalamount/1000 as totalbill, mechanicname.mechanicname, desrdetails1.item_id, desrdetails1.qtydespout, desrdetails1.price, desrdetails1.desrdetails_id from terms1 inner join desr1 on desr1.desr_id = terms1.desr_id and desr1.deleted = 0 inner join vouchertype1 on vouchertype1.vouchertype_id = desr1.vouchertype_id left join mechanicname on mechanicname.mechanic_id = terms1.mechanic_id inner join desrdetails1 on desrdetails1.desr_id = desr1.desr_id where vouchertype1.vouchertype_id in (7,10,12) and desr1.optional = 0 and desr1.desr_id in (select d.desr_id from desr1 as d inner join ledgernames1 on ledgernames1.ledger_id = d.ledger_id inner join subgroupname1 on subgroupname1.subgroup_id = ledgernames1.subgroup_id  and (subgroupname1.code=2 or subgroupname1.code=1 or subgroupname1.code =41)) and vouchertype1.subrelatedto = 39 and terms1.servicetype_id in (3,5,7,9,11,13) and terms1.vehicle_id = 5 and desr1.date between '04/01/2003' and '03/31/2004'
