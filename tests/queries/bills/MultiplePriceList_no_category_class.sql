-- without a category the class goes on with the last join's ON
--
-- call MultiplePriceList as category
-- lngCategory_Id = -1
-- lngClass_Id = 2
select  datefrom,dateto,pricelistdiscount1.item_id,price1,price2,price3,price4,price5,price6,classname,categoryname,items1.itemname as itemname,items1.partno as partno from pricelistdiscount1 inner join items1 on pricelistdiscount1.item_id = items1.item_id inner join itemclass1 on itemclass1.itemclass_id = items1.itemclass_id inner join itemcategory1 on itemcategory1.itemcategory_id = items1.itemcategory_id  and itemclass1.itemclass_id = 2 and considerforsih = 1  order by  items1.item_id,items1.itemname 
