-- of the items of one class under all document filters
--
-- set filter strVouchertypeFilter = Vouchertype1.Vouchertype_id in (7,10,12)
-- set filter btTypeOfentry = 1
-- call ItemWise_DlyBkup as breakup
-- Cat_id = 2
-- blnIsclass = true
select inwards as inwards,outwards as outwards,date as date,aaa.item_id as item_id,itemname as itemname from (select sum(case when godownitem1.isadded = 1 then godownitem1.qty else 0 end) as inwards,sum(case when godownitem1.isadded = 0 then godownitem1.qty else 0 end) as outwards,godownitem1.item_id,case when godownitem1.date < '07/01/2003' then null else godownitem1.date end as date from godownitem1 left join desr1 on desr1.desr_id = godownitem1.gdesr_id left join vouchertype1 on vouchertype1.vouchertype_id = desr1.vouchertype_id  where ((vouchertype1.vouchertype_id in (7,10,12) and godownitem1.gdesr_id in (select d.desr_id from desr1 as d inner join ledgernames1 on ledgernames1.ledger_id = d.ledger_id inner join subgroupname1 on subgroupname1.subgroup_id = ledgernames1.subgroup_id  and (subgroupname1.code=2 or subgroupname1.code=1 or subgroupname1.code =41))) or godownitem1.date is null) and godownitem1.optional = 0 and (godownitem1.date is null or godownitem1.date <= '09/30/2003') and godownitem1.yearno <= 1 group by godownitem1.item_id,case when godownitem1.date < '07/01/2003' then null else godownitem1.date end) as aaa inner join items1 on items1.item_id = aaa.item_id where itemclass_id = 2
