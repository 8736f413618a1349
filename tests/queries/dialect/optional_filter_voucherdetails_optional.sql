-- only the optional documents of voucherdetails1
select count(*) as documents from voucherdetails1 where  voucherdetails1.vhrdetailoptional = 1  and  1 = 1
