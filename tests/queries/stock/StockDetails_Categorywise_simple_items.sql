-- the same with the category of each item
--
-- set year = 2003-04-01 .. 2004-03-31
-- call StockDetails_Categorywise as second_year
-- ValuationMethod = SimpleAvg
--
-- query 2
select  items1.itemcategory_id , items1.item_id , items1.itemname as itemname , uom1.uomname , uomalt1.uomname as altuomname , items1.relationformula       from (( items1 inner join uom1 on uom1.uom_id = items1.uom_id ) inner join uom1 as uomalt1 on uomalt1.uom_id = items1.alternateuom_id ) where yearofcreation <= 2 and item_id <= ( select max(item_id) from itemdetailsasledger ) and items1.deleted = 0  order by items1.itemname , items1.item_id
