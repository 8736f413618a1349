-- the standard costs up to a day, in the first year of the books
--
-- call StockDetails_Itemwise as second_year
-- ValuationMethod = AverageRate
-- bytYearno = 1
--
-- query 2
select * from standardrate1 where dateto <= '03/31/2004' and yearno <=  1 and saleorpurchase = 0 order by datefrom , dateto 
