-- ledgers of the year of two subgroup codes
--
-- call LedgersByCode
-- bytYearno = 2
-- sCode = 1,41
select  ledgernames1.ledger_id as id , ledgernames1.ledgername as name from  ledgernames1 inner join subgroupname1 on subgroupname1.subgroup_id = ledgernames1.subgroup_id where   subgroupname1.code in (1,41) and ledgernames1.subgroup_id not in (33,34) and ledgernames1.yearofcreation <= 2 order by ledgernames1.ledgername 
