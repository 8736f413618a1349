-- the lines with the party under an alias
--
-- set alias taLedger = LedgerNames1.LedgerName + ' ' + LedgerNames1.Pin
-- call BillWiseQuery as april_bills
select desrdetails1.desr_id , desrdetails1.item_id , desrdetails1.qtydespout as qtyout , desrdetails1.price as rate , desr1.date , desr1.desrrefno as refno , desr1.ledger_id , desr1.totalamount/1 as totalamount , desr1.related_id as voucher_id , vouchertype1.vouchertype , ledgernames1.ledgername + ' ' + ledgernames1.pin as ledgername from desrdetails1 inner join desr1 on desr1.desr_id = desrdetails1.desr_id inner join vouchertype1 on vouchertype1.vouchertype_id = desr1.vouchertype_id inner join ledgernames1 on ledgernames1.ledger_id = desr1.ledger_id where vouchertype1.relatedto = 10 and vouchertype1.vouchertype_id <> 43 and desrdetails1.desrdetdate between '04/01/2003' and '04/30/2003' and desrdetails1.iswarranty = 0 and desr1.date between '04/01/2003' and '04/30/2003' and desr1.deleted = 0
