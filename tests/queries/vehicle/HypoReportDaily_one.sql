-- of one financier and model, under all document filters, in thousands
--
-- set filter strVouchertypeFilter = Vouchertype1.Vouchertype_id in (7,10,12)
-- set filter btTypeOfentry = 1
-- set filter OptNo = 1
-- call HypoReportDaily as financed_sales
-- Hypo_id = 3
-- Item_id = 5
-- sngScale = 1000
select desr1.desr_id, desr1.date, desr1.related_id as voucher_id, desr1.optional, desr1.prefix, desr1.desrrefno as refno, desr1.suffix, vouchertype1.vouchertype, terms1.despatchto as buyername, terms1.registrationnumber, desr1.totalamount/1000 as totalbill, (desrdetails1.qtydespout * desrdetails1.price)/1000 as vehiclebill, items1.itemname as itemname, ledgernames1.ledgername from terms1 inner join desr1 on desr1.desr_id = terms1.desr_id and desr1.deleted = 0 inner join vouchertype1 on vouchertype1.vouchertype_id = desr1.vouchertype_id inner join desrdetails1 on desrdetails1.desr_id = desr1.desr_id and desrdetails1.item_id = 5 inner join hypo on hypo.hypo_id = terms1.hypo_id inner join items1 on items1.item_id = desrdetails1.item_id inner join ledgernames1 on ledgernames1.ledger_id = desr1.ledger_id where desr1.optional = 0 and vouchertype1.vouchertype_id in (7,10,12) and terms1.hypo_id = 3 and desr1.desr_id in (select d.desr_id from desr1 as d inner join ledgernames1 on ledgernames1.ledger_id = d.ledger_id inner join subgroupname1 on subgroupname1.subgroup_id = ledgernames1.subgroup_id  and (subgroupname1.code=2 or subgroupname1.code=1 or subgroupname1.code =41)) and desr1.date between '04/01/2003' and '03/31/2004' order by hypo.name, desr1.date, desr1.desr_id, itemname, desrdetails1.desrdetails_id 
