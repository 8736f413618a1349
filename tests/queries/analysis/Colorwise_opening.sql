-- what was there of one item and colour before the period; no row where the item has no batch of the colour
--
-- call Colorwise_Monthly as red_bikes
-- lngItem_id = 5
-- lngColor_Id = 2
select uom1.uomname as uomname,isnull((select sum(case when godownitem1.isadded = 1 then godownitem1.qty else -godownitem1.qty end) from godownitem1 where (godownitem1.date is null or godownitem1.date < '04/05/2004') and godownitem1.optional = 0 and godownitem1.goriginalvouchertype_id <> 18 and godownitem1.goriginalvouchertype_id <> 25 and godownitem1.item_id = 5 and godownitem1.color_id = 2 and godownitem1.yearno <= 2),0) as opening from items1 inner join uom1 on uom1.uom_id = items1.uom_id where items1.item_id = 5 and exists (select batches1.batch_id from batches1 inner join color1 on color1.color_id = batches1.color_id where batches1.item_id = 5 and color1.color_id = 2)
