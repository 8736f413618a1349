-- the items of one category
--
-- call Monthly_Categorywise as spares
-- ValuationMethod = SimpleAvg
--
-- query 2
select items1.item_id from items1 where items1.deleted = 0 and items1.itemcategory_id = 2 and items1.yearofcreation <= 1 order by items1.item_id 
