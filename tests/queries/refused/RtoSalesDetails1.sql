-- the list of vehicles sold, with an and that has nothing to join
--
-- call RtoSalesDetails1 as form
--
-- refused: column 862: expected a condition, found "group"
select desr1.date as date,desr1.desrrefno as refno,ledgernames1.ledgername as ledgername,vouchertype1.vouchertype as vouchertype,desr1.totalamount as totalamount,aaa.* from ( select godownitem1.gdesr_id as desr_id,godownitem1.batch_id from godownitem1 inner join vouchertype1 on vouchertype1.subrelatedto = 10 and vouchertype1.relatedto = godownitem1.goriginalvouchertype_id inner join batches1 on batches1.batch_id = godownitem1.batch_id and godownitem1.date between '04/01/2003' and '03/31/2004' and qtyonhand=2 group by godownitem1.batch_id,godownitem1.gdesr_id ) as aaa inner join desr1 on aaa.desr_id = desr1.desr_id inner join ledgernames1 on desr1.ledger_id = ledgernames1.ledger_id inner join vouchertype1 on desr1.vouchertype_id = vouchertype1.vouchertype_id and desr1.date between '04/01/2003' and '03/31/2004' and vouchertype1.subrelatedto =10 and   group by desr1.date,desr1.desrrefno,ledgernames1.ledgername,vouchertype1.vouchertype,desr1.totalamount,aaa.desr_id,aaa.batch_id order by desr1.date 
