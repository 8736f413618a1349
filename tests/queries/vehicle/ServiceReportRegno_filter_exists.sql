-- of vehicles by a condition with a subquery
--
-- call ServiceReportRegno as history
-- blnDetailed = false
-- strFilter = Where Desr_id In (Select Desr_id From Desr1 Where Desr1.Date Between #04/01/2003# And #03/31/2004#)
select aaa.*, desr1.date, desr1.totalamount/1 as totalamount, desr1.related_id, desr1.prefix, desr1.desrrefno, desr1.suffix, desr1.yearno as desryearno from (select desr_id, registrationnumber, chasisnumber, enginenumber, list1, list2, list3, list4, list5, list6, jobcardrefno, jobcardprefix, jobcardsuffix, isjobcard from terms1  where desr_id in (select desr_id from desr1 where desr1.date between '04/01/2003' and '03/31/2004')) as aaa inner join desr1 on desr1.desr_id = aaa.desr_id inner join vouchertype1 on vouchertype1.vouchertype_id = desr1.vouchertype_id where vouchertype1.subrelatedto = 39 and desr1.deleted = 0
