-- the vouchers of one item and colour
--
-- call Colorwise_Daily as red_bikes
-- lngItem_id = 5
-- lngColor_Id = 2
--
-- query 2
select desr1.date as date,ledgernames1.ledgername as ledgername,vouchertype1.vouchertype as vhrtype,desr1.prefix as prefix,desr1.desrrefno as refno,desr1.suffix as suffix,isnull(case when godownitem1.isadded = 1 then godownitem1.qty else 0 end,0) as inwards,isnull(case when godownitem1.isadded = 0 then godownitem1.qty else 0 end,0) as outwards,desr1.desr_id as desr_id,desr1.related_id as voucher_id from godownitem1 inner join desr1 on desr1.desr_id = godownitem1.gdesr_id inner join ledgernames1 on ledgernames1.ledger_id = desr1.ledger_id inner join vouchertype1 on vouchertype1.vouchertype_id = desr1.vouchertype_id where godownitem1.date between '04/05/2004' and '06/10/2004' and godownitem1.optional = 0 and godownitem1.goriginalvouchertype_id <> 18 and godownitem1.goriginalvouchertype_id <> 25 and godownitem1.item_id = 5 and godownitem1.color_id = 2 order by desr1.date,desr1.desr_id,godownitem1.godownitem_id
