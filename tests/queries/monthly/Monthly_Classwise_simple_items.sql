-- the items of one class
--
-- call Monthly_Classwise as fast
-- ValuationMethod = SimpleAvg
--
-- query 2
select items1.item_id from items1 where items1.deleted = 0 and items1.itemclass_id = 1 and items1.yearofcreation <= 1 order by items1.item_id 
