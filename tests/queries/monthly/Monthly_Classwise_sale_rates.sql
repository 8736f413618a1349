-- sale rates of one class with those directly under it
--
-- call Monthly_Classwise as fast
-- ValuationMethod = LastSaleRate
--
-- query 2
select items1.item_id , godownitem1.godown_id , godownitem1.batch_id , godownitem1.rate , godownitem1.isopeningbal , godownitem1.isadded , godownitem1.date from godownitem1 inner join items1 on items1.item_id = godownitem1.item_id inner join itemclass1 on itemclass1.itemclass_id = items1.itemclass_id where ( isadded in (0,1) or isopeningbal = 1 ) and godownitem1.goriginalvouchertype_id in (10,15,0) and godownitem1.optional = 0 and items1.deleted = 0 and ( itemclass1.itemclass_id = 1 or ( itemclass1.relatedto = 1 and itemclass1.deleted = 0 ) ) and ( godownitem1.date <= '09/30/2003' or godownitem1.isopeningbal = 1 ) and godownitem1.yearno + 0 <= 1 order by items1.item_id , godownitem1.yearno , godownitem1.date , godownitem1.godownitem_id , godownitem1.godown_id , godownitem1.batch_id 
