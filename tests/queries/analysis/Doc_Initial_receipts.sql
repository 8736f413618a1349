-- of receipts
--
-- call Doc_Initial as sale_bills
-- lngVouchertype_id = 9
select sum(creditamt)/1  as amount ,  ledgernames1.ledger_id , ledgernames1.ledgername as ledgername from voucherdetails1 inner join ledgernames1 on ledgernames1.ledger_id = voucherdetails1.ledger_id inner join voucher1 on voucher1.voucher_id = voucherdetails1.voucher_id inner join vouchertype1 on vouchertype1.vouchertype_id = voucher1.vouchertype_id  where  vouchertype1.subrelatedto =9 and  [vhrdetaildate] between '04/01/2003' and '03/31/2004' and   voucherdetails1.creditamt > 0 and voucherdetails1.deleted = 0 and voucherdetails1.vhrdetailoptional = 0  group by ledgernames1.ledger_id , ledgernames1.ledgername order by ledgernames1.ledgername 
