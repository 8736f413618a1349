-- only the regular documents of desr1
select count(*) as documents from desr1 where  desr1.optional = 0  and  1 = 1
