-- the items of one class
select  items1.item_id , '' as uomname , '' as altuomname , 1 as relformula from items1 where items1.itemclass_id = 2 and deleted = 0 and yearofcreation <= 2
