-- only the optional documents of godownitem1
select count(*) as documents from godownitem1 where  godownitem1.gdesroptional = 1  and  1 = 1
