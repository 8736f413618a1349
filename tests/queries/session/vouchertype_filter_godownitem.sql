-- the voucher type filter on stock movements, with the joins that it needs
select count(*) as documents from godownitem1  inner join desr1 on desr1.desr_id = godownitem1.gdesr_id inner join vouchertype1 on vouchertype1.vouchertype_id = desr1.vouchertype_id  where vouchertype1.vouchertype_id in (7,10,12) and godownitem1.optional = 0
