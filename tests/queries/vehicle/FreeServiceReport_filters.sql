-- under all document filters, with aliases for models and categories
--
-- set filter strVouchertypeFilter = Vouchertype1.Vouchertype_id in (7,10,12)
-- set filter btTypeOfentry = 1
-- set filter OptNo = 1
-- set alias taItem = Items1.ItemPartNo
-- set alias taCategory = ItemCategory1.CategoryName + '.'
-- call FreeServiceReport as free_services
-- blnDetailed = true
select itemcategory1.categoryname + '.' as categoryname, itemcategory1.itemcategory_id, items1.item_id, items1.itempartno as itemname, qry1.servicetype_id, qry1.value/1 as value from (select terms1.vehicle_id, terms1.servicetype_id, sum(desr1.totalamount) as value from terms1 inner join desr1 on desr1.desr_id = terms1.desr_id and desr1.deleted = 0 inner join vouchertype1 on vouchertype1.vouchertype_id = desr1.vouchertype_id where vouchertype1.vouchertype_id in (7,10,12) and desr1.optional = 0 and desr1.desr_id in (select d.desr_id from desr1 as d inner join ledgernames1 on ledgernames1.ledger_id = d.ledger_id inner join subgroupname1 on subgroupname1.subgroup_id = ledgernames1.subgroup_id  and (subgroupname1.code=2 or subgroupname1.code=1 or subgroupname1.code =41)) and vouchertype1.subrelatedto = 39 and terms1.servicetype_id in (3,5,7,9,11,13) and desr1.date between '04/01/2003' and '03/31/2004' group by terms1.vehicle_id, terms1.servicetype_id) as qry1 inner join items1 on items1.item_id = qry1.vehicle_id inner join itemcategory1 on itemcategory1.itemcategory_id = items1.itemcategory_id order by categoryname, itemname, qry1.servicetype_id, itemcategory1.itemcategory_id, items1.item_id 
