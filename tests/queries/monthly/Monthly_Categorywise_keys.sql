-- the stock keys of one category alone
--
-- call Monthly_Categorywise as spares
-- blnOnlyItems = true
-- ValuationMethod = AverageRate
--
-- query 2
select godownitem1.item_id , godownitem1.godown_id , godownitem1.batch_id , uom1.uomname as uom , uomalt.uomname as altuom , items1.relationformula as relformula from godownitem1 inner join items1 on items1.item_id = godownitem1.item_id inner join uom1 on uom1.uom_id = items1.uom_id inner join uom1 as uomalt on uomalt.uom_id = items1.alternateuom_id where godownitem1.optional = 0 and items1.deleted = 0 and items1.itemcategory_id = 2 group by godownitem1.item_id , godownitem1.godown_id , godownitem1.batch_id , uom1.uomname , uomalt.uomname , items1.relationformula order by godownitem1.item_id , godownitem1.godown_id , godownitem1.batch_id 
