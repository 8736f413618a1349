-- inward and outward quantity of one item day by day; all that lies before folds into a row without a date
--
-- call ItemWise_DlyBkup as breakup
-- Item_id = 5
select inwards as inwards,outwards as outwards,date as date,0 as item_id,'' as itemname from (select sum(case when godownitem1.isadded = 1 then godownitem1.qty else 0 end) as inwards,sum(case when godownitem1.isadded = 0 then godownitem1.qty else 0 end) as outwards,case when godownitem1.date < '07/01/2003' then null else godownitem1.date end as date from godownitem1 where godownitem1.item_id = 5 and godownitem1.optional = 0 and (godownitem1.date is null or godownitem1.date <= '09/30/2003') and godownitem1.yearno <= 1 group by case when godownitem1.date < '07/01/2003' then null else godownitem1.date end) as aaa
