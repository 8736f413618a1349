-- standard costs and prices of one item
--
-- call Monthly_Itemwise as chain
-- ValuationMethod = StandardPrice
--
-- query 4
select standardrate1.item_id , standardrate1.datefrom , standardrate1.dateto , standardrate1.rate , standardrate1.saleorpurchase , standardrate1.yearno from standardrate1 inner join items1 on items1.item_id = standardrate1.item_id where items1.deleted = 0 and standardrate1.item_id = 1 and standardrate1.dateto <= '09/30/2003' and standardrate1.yearno <= 1 order by standardrate1.item_id , standardrate1.datefrom , standardrate1.dateto , standardrate1.yearno , standardrate1.rate 
