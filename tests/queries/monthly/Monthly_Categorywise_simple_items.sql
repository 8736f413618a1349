-- the items of one category
select  items1.item_id , '' as uomname , '' as altuomname , 1 as relformula from items1 where items1.itemcategory_id = 4 and deleted = 0 and yearofcreation <= 2
