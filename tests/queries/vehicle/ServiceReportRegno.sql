-- every service bill of every vehicle
--
-- call ServiceReportRegno as history
-- blnDetailed = false
select aaa.*, desr1.date, desr1.totalamount/1 as totalamount, desr1.related_id, desr1.prefix, desr1.desrrefno, desr1.suffix, desr1.yearno as desryearno from (select desr_id, registrationnumber, chasisnumber, enginenumber, list1, list2, list3, list4, list5, list6, jobcardrefno, jobcardprefix, jobcardsuffix, isjobcard from terms1  ) as aaa inner join desr1 on desr1.desr_id = aaa.desr_id inner join vouchertype1 on vouchertype1.vouchertype_id = desr1.vouchertype_id where vouchertype1.subrelatedto = 39 and desr1.deleted = 0
