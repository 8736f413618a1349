-- items that count for stock
select items1.item_id from items1 where items1.deleted = 0 and  considerforsih = 1 order by items1.item_id
