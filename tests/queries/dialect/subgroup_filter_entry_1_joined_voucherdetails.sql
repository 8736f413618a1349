-- documents of customers and the like, joined to voucher lines
select voucherdetails1.voucher_id from voucherdetails1  inner join subgroupname1 on subgroupname1.subgroup_id =  voucherdetails1.subgroup_id and (subgroupname1.code=2 or subgroupname1.code=1 or subgroupname1.code = 41)     where voucherdetails1.deleted = 0
