-- standard costs of one godown alone
--
-- call Monthly_Godownwise as main
-- blnOnlyItems = true
-- ValuationMethod = AverageRate
--
-- query 4
select standardrate1.item_id , standardrate1.datefrom , standardrate1.dateto , standardrate1.rate , standardrate1.saleorpurchase , standardrate1.yearno from standardrate1 inner join items1 on items1.item_id + 0 = standardrate1.item_id where items1.deleted = 0 and standardrate1.dateto <= '09/30/2003' and standardrate1.yearno <= 1 and standardrate1.saleorpurchase = 0 order by standardrate1.item_id , standardrate1.datefrom , standardrate1.dateto , standardrate1.yearno , standardrate1.rate 
