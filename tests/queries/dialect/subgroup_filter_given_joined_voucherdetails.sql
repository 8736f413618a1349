-- documents by the host's own condition on the subgroup, joined to voucher lines
select voucherdetails1.voucher_id from voucherdetails1  inner join subgroupname1 on subgroupname1.subgroup_id =  voucherdetails1.subgroup_id and    subgroupname1.code in (2,41) where voucherdetails1.deleted = 0
