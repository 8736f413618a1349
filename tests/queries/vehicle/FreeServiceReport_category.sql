-- of one category, in thousands
--
-- call FreeServiceReport as free_services
-- sngScale = 1000
-- Cat_id = 4
select itemcategory1.categoryname as categoryname, itemcategory1.itemcategory_id, items1.item_id, items1.itemname as itemname, qry1.servicetype_id, qry1.value/1000 as value from (select terms1.vehicle_id, terms1.servicetype_id, sum(desr1.totalamount) as value from terms1 inner join desr1 on desr1.desr_id = terms1.desr_id and desr1.deleted = 0 inner join vouchertype1 on vouchertype1.vouchertype_id = desr1.vouchertype_id where vouchertype1.subrelatedto = 39 and terms1.servicetype_id in (3,5,7,9,11,13) and desr1.date between '04/01/2003' and '03/31/2004' group by terms1.vehicle_id, terms1.servicetype_id) as qry1 inner join items1 on items1.item_id = qry1.vehicle_id inner join itemcategory1 on itemcategory1.itemcategory_id = items1.itemcategory_id where itemcategory1.itemcategory_id = 4 order by categoryname, itemname, qry1.servicetype_id, itemcategory1.itemcategory_id, items1.item_id 
