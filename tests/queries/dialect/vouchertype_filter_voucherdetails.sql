-- the voucher type filter on voucher lines, with the joins that it needs
select count(*) as documents from voucherdetails1 inner join voucher1 on voucher1.voucher_id = voucherdetails1.voucher_id inner join vouchertype1 on vouchertype1.vouchertype_id = voucher1.vouchertype_id  where vouchertype1.vouchertype_id in (7,10,12) and voucherdetails1.deleted = 0
