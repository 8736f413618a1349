-- with a ledger alias that joins name and area
--
-- set alias taLedger = LedgerNames1.LedgerName + ' ' + LedgerNames1.Pin
-- call Doc_Initial as sale_bills
select sum(desr1.totalamount)/1  as amount , ledgernames1.ledger_id , ledgernames1.ledgername + ' ' + ledgernames1.pin as ledgername from (desr1 inner join vouchertype1 on vouchertype1.vouchertype_id = desr1.vouchertype_id) inner join ledgernames1 on ledgernames1.ledger_id = desr1.ledger_id where  vouchertype1.subrelatedto =10 and desr1.deleted = 0 and desr1.optional =0 and  desr1.date between '04/01/2003' and '03/31/2004' group by ledgernames1.ledger_id , ledgernames1.ledgername + ' ' + ledgernames1.pin order by ledgernames1.ledgername + ' ' + ledgernames1.pin 
