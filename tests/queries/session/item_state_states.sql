-- items of two states
select items1.item_id from items1 where items1.deleted = 0 and  (itemstate = 1 or itemstate = 2) order by items1.item_id
