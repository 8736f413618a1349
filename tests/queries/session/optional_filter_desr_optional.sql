-- only the optional documents of desr1
select count(*) as documents from desr1 where  desr1.optional = 1  and  1 = 1
