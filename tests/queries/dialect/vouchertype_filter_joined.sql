-- the voucher type filter with the voucher type joined already
select count(*) as documents from desr1 inner join vouchertype1 on vouchertype1.vouchertype_id = desr1.vouchertype_id where vouchertype1.vouchertype_id in (7,10,12) and desr1.deleted = 0
