-- of one item and party under all document filters
--
-- set filter strVouchertypeFilter = Vouchertype1.Vouchertype_id in (7,10,12)
-- set filter strSubgroupFilter = SubgroupName1.Code = 7
-- set filter OptNo = 1
-- call ItemWise_DlyBkup as breakup
-- Item_id = 5
-- Ledger_id = 3
-- strVouchertype = Vouchertype1.RelatedTo = 10
select inwards as inwards,outwards as outwards,date as date,0 as item_id,'' as itemname from (select sum(case when godownitem1.isadded = 1 then godownitem1.qty else 0 end) as inwards,sum(case when godownitem1.isadded = 0 then godownitem1.qty else 0 end) as outwards,case when godownitem1.date < '07/01/2003' then null else godownitem1.date end as date from godownitem1 left join desr1 on desr1.desr_id = godownitem1.gdesr_id left join vouchertype1 on vouchertype1.vouchertype_id = desr1.vouchertype_id  where ((vouchertype1.vouchertype_id in (7,10,12) and vouchertype1.relatedto = 10 and godownitem1.gledger_id = 3 and godownitem1.gdesr_id in (select d.desr_id from desr1 as d inner join ledgernames1 on ledgernames1.ledger_id = d.ledger_id inner join subgroupname1 on subgroupname1.subgroup_id = ledgernames1.subgroup_id  and subgroupname1.code = 7)) or godownitem1.date is null) and godownitem1.item_id = 5 and godownitem1.optional = 0 and (godownitem1.date is null or godownitem1.date <= '09/30/2003') and godownitem1.yearno <= 1 group by case when godownitem1.date < '07/01/2003' then null else godownitem1.date end) as aaa
