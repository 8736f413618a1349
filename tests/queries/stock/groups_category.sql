-- the item categories as a tree; the prefix of the order names no table of the query, the result column is meant
--
-- call StockDetails_Categorywise as second_year
-- ValuationMethod = AverageRate
select itemcategory_id  , relatedto , itemcategory1.categoryname as categoryname from itemcategory1 where deleted = 0  order by itemscategory1.categoryname , itemcategory_id 
