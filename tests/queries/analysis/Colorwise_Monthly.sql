-- inwards and outwards of one item and colour by month
--
-- call Colorwise_Monthly as red_bikes
-- lngItem_id = 5
-- lngColor_Id = 2
--
-- query 2
select year(date) * 100 + month(date) as inc_id,isnull(sum(inwards),0) as inwards,isnull(sum(outwards),0) as outwards from (select godownitem1.date as date,sum(case when godownitem1.isadded = 1 then godownitem1.qty else 0 end) as inwards,sum(case when godownitem1.isadded = 0 then godownitem1.qty else 0 end) as outwards from godownitem1 where godownitem1.date between '04/05/2004' and '06/10/2004' and godownitem1.optional = 0 and godownitem1.goriginalvouchertype_id <> 18 and godownitem1.goriginalvouchertype_id <> 25 and godownitem1.item_id = 5 and godownitem1.color_id = 2 group by godownitem1.date) as days group by year(date),month(date)
