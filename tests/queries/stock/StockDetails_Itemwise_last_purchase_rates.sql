-- purchase and opening lines, latest last
--
-- call StockDetails_Itemwise as second_year
-- ValuationMethod = LastPurchaseRate
--
-- query 2
select godownitem1.item_id , godownitem1.godown_id , godownitem1.batch_id , godownitem1.rate , godownitem1.isopeningbal , godownitem1.yearno , godownitem1.date from godownitem1 where ( isadded = 1 or isopeningbal = 1 ) and godownitem1.goriginalvouchertype_id in (7,14,0) and godownitem1.optional = 0 and ( godownitem1.date <= '03/31/2004' or isopeningbal = 1 ) and godownitem1.yearno <= 2 order by godownitem1.yearno , godownitem1.date , godownitem1.item_id , godownitem1.godownitem_id , godownitem1.godown_id , godownitem1.batch_id 
