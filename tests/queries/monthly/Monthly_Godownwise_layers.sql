-- every movement of one godown, always alone
--
-- call Monthly_Godownwise as main
-- ValuationMethod = FifoRate
select items1.item_id , godownitem1.godown_id , godownitem1.batch_id , godownitem1.qty , godownitem1.rate , godownitem1.isopeningbal , godownitem1.isadded , godownitem1.yearno , godownitem1.date from godownitem1 inner join items1 on items1.item_id + 0 = godownitem1.item_id inner join uom1 on uom1.uom_id = items1.uom_id inner join uom1 as uomalt on uomalt.uom_id = items1.alternateuom_id where items1.deleted = 0 and godownitem1.godown_id = 1 and godownitem1.yearno + 0 <= 1 and ( godownitem1.date <= '09/30/2003' or godownitem1.isopeningbal = 1 ) and godownitem1.optional = 0 order by items1.item_id , godownitem1.godown_id , godownitem1.batch_id , godownitem1.yearno , godownitem1.date , godownitem1.desrdetails_id , godownitem1.godownitem_id 
