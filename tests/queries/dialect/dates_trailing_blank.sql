-- a date literal with a blank behind it
select desr1.desr_id from desr1 where desr1.date between '04/01/2003'  and '03/31/2004 ' 
