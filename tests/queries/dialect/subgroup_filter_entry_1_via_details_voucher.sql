-- documents of customers and the like, on vouchers through their lines
select voucher1.voucher_id from voucher1 where  voucher1.voucher_id in (select v.voucher_id from voucherdetails1 as v inner join subgroupname1 on subgroupname1.subgroup_id = v.subgroup_id and (subgroupname1.code=2 or subgroupname1.code=1 or subgroupname1.code = 41) )    and  voucher1.deleted = 0
