-- the godowns as a tree, under the category's column names
--
-- call StockDetails_Godownwise as second_year
-- ValuationMethod = AverageRate
select godown_id as itemcategory_id , relatedto , godown1.godownname as categoryname from godown1 where deleted = 0 order by godown1.godownname , godown_id 
