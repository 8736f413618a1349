-- with a bill condition of the host, in thousands
--
-- call Doc_Initial as sale_bills
-- gScale = 1000
-- strBillFilter = Desr1.TotalAmount > 5000 and Desr1.Date > #06/30/2003#
select sum(desr1.totalamount)/1000  as amount , ledgernames1.ledger_id , ledgernames1.ledgername as ledgername from (desr1 inner join vouchertype1 on vouchertype1.vouchertype_id = desr1.vouchertype_id) inner join ledgernames1 on ledgernames1.ledger_id = desr1.ledger_id where  vouchertype1.subrelatedto =10 and desr1.totalamount > 5000 and desr1.date > '06/30/2003' and desr1.deleted = 0 and desr1.optional =0 and  desr1.date between '04/01/2003' and '03/31/2004' group by ledgernames1.ledger_id , ledgernames1.ledgername order by ledgernames1.ledgername 
