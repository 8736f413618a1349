-- under all document filters
--
-- set filter strVouchertypeFilter = Vouchertype1.Vouchertype_id in (7,10,12)
-- set filter btTypeOfentry = 1
-- set filter OptNo = 1
-- call ServiceTax as year
select desrdetails1.item_id,desrdetails1.desr_id,desrdetails1.salestax/1 as salestax,desrdetails1.qtydespout as qtyout,desrdetails1.actualrate as rate,desr1.ledger_id,desr1.related_id as voucher_id,desr1.desrrefno as refno,desr1.date from desrdetails1 inner join desr1 on desr1.desr_id = desrdetails1.desr_id and desr1.deleted = 0 and desr1.date between '04/01/2003' and '03/31/2004' inner join vouchertype1 on vouchertype1.vouchertype_id = desr1.vouchertype_id where desrdetails1.desrdetdate between '04/01/2003' and '03/31/2004' and desrdetails1.salestax <> 0 and desrdetails1.qtydespin = 0 and (vouchertype1.vouchertype_id in (7,10,12) and desr1.desr_id in (select d.desr_id from desr1 as d inner join ledgernames1 on ledgernames1.ledger_id = d.ledger_id inner join subgroupname1 on subgroupname1.subgroup_id = ledgernames1.subgroup_id  and (subgroupname1.code=2 or subgroupname1.code=1 or subgroupname1.code =41)) and desr1.optional = 0 and vouchertype1.subrelatedto = 39) order by desr1.related_id,desrdetails1.desrdetails_id
