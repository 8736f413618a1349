-- only the regular documents of voucher1
select count(*) as documents from voucher1 where  voucher1.optional = 0  and  1 = 1
