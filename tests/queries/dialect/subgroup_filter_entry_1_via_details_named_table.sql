-- documents of customers and the like, on vouchers under another correlation name
select v1.voucher_id from voucher1 as v1 where v1.deleted = 0  and  v1.voucher_id in (select v.voucher_id from voucherdetails1 as v inner join subgroupname1 on subgroupname1.subgroup_id = v.subgroup_id and (subgroupname1.code=2 or subgroupname1.code=1 or subgroupname1.code = 41) )   
