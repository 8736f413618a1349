-- the standard costs up to a day
--
-- call StockDetails_Itemwise as second_year
-- ValuationMethod = standardrate
select * from standardrate1 where dateto <= '03/31/2004' and yearno <=  2 and saleorpurchase = 0 order by datefrom , dateto 
