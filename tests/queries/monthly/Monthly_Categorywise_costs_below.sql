-- standard costs of one category with those directly under it
--
-- call Monthly_Categorywise as spares
-- ValuationMethod = AverageRate
--
-- query 4
select standardrate1.item_id , standardrate1.datefrom , standardrate1.dateto , standardrate1.rate , standardrate1.saleorpurchase , standardrate1.yearno from standardrate1 inner join items1 on items1.item_id = standardrate1.item_id inner join itemcategory1 on itemcategory1.itemcategory_id = items1.itemcategory_id where items1.deleted = 0 and ( itemcategory1.itemcategory_id = 2 or ( itemcategory1.relatedto = 2 and itemcategory1.deleted = 0 ) ) and standardrate1.dateto <= '09/30/2003' and standardrate1.yearno <= 1 and standardrate1.saleorpurchase = 0 order by standardrate1.item_id , standardrate1.datefrom , standardrate1.dateto , standardrate1.yearno , standardrate1.rate 
