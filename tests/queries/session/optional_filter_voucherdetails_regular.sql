-- only the regular documents of voucherdetails1
select count(*) as documents from voucherdetails1 where  voucherdetails1.vhrdetailoptional = 0  and  1 = 1
