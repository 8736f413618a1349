-- documents of customers and the like, on documents
select desr1.desr_id from desr1 where  desr1.desr_id in (select d.desr_id from desr1 as d inner join ledgernames1 on ledgernames1.ledger_id = d.ledger_id inner join subgroupname1 on subgroupname1.subgroup_id = ledgernames1.subgroup_id  and (subgroupname1.code=2 or subgroupname1.code=1 or subgroupname1.code =41))     and  desr1.deleted = 0
