-- only the regular documents of godownitem1
select count(*) as documents from godownitem1 where  godownitem1.gdesroptional = 0  and  1 = 1
