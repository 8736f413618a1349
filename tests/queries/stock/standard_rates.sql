-- the standard costs and prices up to a day
select * from standardrate1 where dateto <= '03/31/2004' and yearno <=  2 order by item_id , datefrom , dateto 
