-- units of one item
--
-- call Monthly_Itemwise as chain
-- ValuationMethod = SimpleAvg
--
-- query 2
select items1.item_id , uom1.uomname as uom , uomalt.uomname as altuom , items1.relationformula as relformula from items1 inner join uom1 on uom1.uom_id = items1.uom_id inner join uom1 as uomalt on uomalt.uom_id = items1.alternateuom_id where items1.deleted = 0 and items1.item_id = 1 
