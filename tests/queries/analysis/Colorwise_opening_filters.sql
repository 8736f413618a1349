-- the same under the document filters
--
-- set filter strVouchertypeFilter = Vouchertype1.Vouchertype_id in (7,10,12)
-- set filter btTypeOfentry = 1
-- set filter OptNo = 1
-- call Colorwise_Monthly as red_bikes
-- lngItem_id = 5
-- lngColor_Id = 2
select uom1.uomname as uomname,isnull((select sum(case when godownitem1.isadded = 1 then godownitem1.qty else -godownitem1.qty end) from godownitem1 left join desr1 on desr1.desr_id = godownitem1.gdesr_id left join vouchertype1 on vouchertype1.vouchertype_id = desr1.vouchertype_id  where ((vouchertype1.vouchertype_id in (7,10,12) and godownitem1.gdesroptional = 0) or godownitem1.date is null) and (godownitem1.date is null or godownitem1.date < '04/05/2004') and godownitem1.optional = 0 and godownitem1.goriginalvouchertype_id <> 18 and godownitem1.goriginalvouchertype_id <> 25 and godownitem1.item_id = 5 and godownitem1.color_id = 2 and godownitem1.yearno <= 2),0) as opening from items1 inner join uom1 on uom1.uom_id = items1.uom_id where items1.item_id = 5 and exists (select batches1.batch_id from batches1 inner join color1 on color1.color_id = batches1.color_id where batches1.item_id = 5 and color1.color_id = 2)
