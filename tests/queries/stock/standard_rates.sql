-- the standard costs and prices up to a day
--
-- call StockDetails_Itemwise as second_year
-- ValuationMethod = LastSaleRate
select * from standardrate1 where dateto <= '03/31/2004' and yearno <=  2 order by item_id , datefrom , dateto 
