-- a godown alias where the table has its own name
select godown1.shortname as godownname , count(*) as movements from godownitem1 inner join godown1 on godown1.godown_id = godownitem1.godown_id group by godown1.shortname
