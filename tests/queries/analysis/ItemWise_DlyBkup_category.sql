-- of the items of one category that count for stock
--
-- call ItemWise_DlyBkup as breakup
-- Cat_id = 4
-- strConsiderForSih = ConsiderForSih = 1
select inwards as inwards,outwards as outwards,date as date,aaa.item_id as item_id,itemname as itemname from (select sum(case when godownitem1.isadded = 1 then godownitem1.qty else 0 end) as inwards,sum(case when godownitem1.isadded = 0 then godownitem1.qty else 0 end) as outwards,godownitem1.item_id,case when godownitem1.date < '07/01/2003' then null else godownitem1.date end as date from godownitem1 where godownitem1.optional = 0 and (godownitem1.date is null or godownitem1.date <= '09/30/2003') and godownitem1.yearno <= 1 group by godownitem1.item_id,case when godownitem1.date < '07/01/2003' then null else godownitem1.date end) as aaa inner join items1 on items1.item_id = aaa.item_id where itemcategory_id = 4 and  considerforsih = 1
