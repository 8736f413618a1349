-- items of one state
select items1.item_id from items1 where items1.deleted = 0 and  (itemstate = 3) order by items1.item_id
