-- the receipts of one bill, each with its cheque number and bank ledger in one text
--
-- call AutoSearch as search
-- reptype = rtAutoSearchReceiptChild
-- billbybill_id = 17
select Voucher1.Vouchernumber,Voucher1.Voucher_id,(select top 1 ChequeNumber + '|' + cast(Ledger_id as varchar) from Voucherdetails1 where voucher_id = Voucher1.voucher_id and chequenumber <> '' order by ChequeNumber,Ledger_id) as chequenumber,(amountcr-amountdr) as amount,billbybilldetails1.Date,billbybilldetails1.BillByBill_id from billbybill1 inner join billbybilldetails1 on billbybilldetails1.BillByBill_id = billbybill1.BillByBill_id inner join vouchertype1 on vouchertype1.vouchertype_id = billbybilldetails1.vouchertype_id inner join Voucher1 on Voucher1.voucher_id = billbybilldetails1.voucher_id where billbybill1.CrVoucher_id = 17 and vouchertype1.relatedto = 9 order by billbybilldetails1.BillByBillDetails_id
