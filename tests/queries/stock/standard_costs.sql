-- the standard costs up to a day
select * from standardrate1 where dateto <= '03/31/2004' and yearno <=  2 and saleorpurchase = 0 order by datefrom , dateto 
