-- the item classes as a tree, under the category's column names
--
-- call StockDetails_Classwise as second_year
-- ValuationMethod = AverageRate
select itemclass_id as itemcategory_id  , relatedto , itemclass1.classname as categoryname from itemclass1 where deleted = 0  order by itemclass1.classname , itemclass_id 
