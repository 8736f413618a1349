-- movements by month, before and in the period, of one item
--
-- call Monthly_Itemwise as chain
-- bytYearno = 2
-- ValuationMethod = AverageRate
--
-- query 3
select items1.item_id , godownitem1.godown_id , godownitem1.batch_id , case when godownitem1.date < '07/01/2003' then 1 else 2 end as book_id , year(godownitem1.date) * 100 + month(godownitem1.date) as inc_id , sum ( case when isadded = 1 then godownitem1.qty else 0 end ) as qtyin , sum ( case when isadded = 1 then godownitem1.qty * godownitem1.rate else 0 end ) as qtyinvalue , sum ( case when isadded = 0 then godownitem1.qty else 0 end ) as qtyout , sum ( case when isadded = 0 then godownitem1.qty * godownitem1.rate else 0 end ) as qtyoutvalue from godownitem1 inner join items1 on items1.item_id = godownitem1.item_id inner join uom1 on uom1.uom_id = items1.uom_id inner join uom1 as uomalt on uomalt.uom_id = items1.alternateuom_id where items1.deleted = 0 and godownitem1.item_id = 1 and godownitem1.yearno + 0 = 2 and godownitem1.isopeningbal = 0 and godownitem1.optional = 0 and ( ( godownitem1.date >= '12/30/1899' and godownitem1.date < '07/01/2003' ) or ( godownitem1.date >= '07/01/2003' and godownitem1.date <= '09/30/2003' ) ) group by items1.item_id , godownitem1.godown_id , godownitem1.batch_id , case when godownitem1.date < '07/01/2003' then 1 else 2 end , year(godownitem1.date) * 100 + month(godownitem1.date) order by items1.item_id , godownitem1.godown_id , godownitem1.batch_id , case when godownitem1.date < '07/01/2003' then 1 else 2 end , year(godownitem1.date) * 100 + month(godownitem1.date) 
