-- the items that a godown may have
--
-- call Monthly_Godownwise as main
-- blnOnlyItems = true
-- ValuationMethod = AverageRate
--
-- query 2
select items1.item_id from items1 where items1.deleted = 0 and items1.yearofcreation <= 1 order by items1.item_id 
