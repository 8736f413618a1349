-- units of one item
select  items1.itemname , uom1.uomname , uomalt1.uomname as altuomname , items1.relationformula as relformula       from (( items1 inner join uom1 on uom1.uom_id = items1.uom_id ) inner join uom1 as uomalt1 on uomalt1.uom_id = items1.alternateuom_id ) where item_id = 5
