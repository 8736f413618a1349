-- of the vehicles that the host asks for, in thousands
--
-- call ServiceReportRegno as history
-- sngScale = 1000
-- strFilter = Where RegistrationNumber Like 'KA 01%' And DateOfSale >= #04/01/2003#
select aaa.*, desr1.date, desr1.totalamount/1000 as totalamount, desr1.related_id, desr1.prefix, desr1.desrrefno, desr1.suffix, desr1.yearno as desryearno, desrdetails1.item_id, desrdetails1.qtydespout as qty, desrdetails1.price, desrdetails1.actualrate, desrdetails1.salestax, desrdetails1.discount, desrdetails1.iswarranty, desrdetails1.desrdetails_id from (select desr_id, registrationnumber, chasisnumber, enginenumber, list1, list2, list3, list4, list5, list6, jobcardrefno, jobcardprefix, jobcardsuffix, isjobcard from terms1  where registrationnumber like 'ka 01%' and dateofsale >= '04/01/2003') as aaa inner join desr1 on desr1.desr_id = aaa.desr_id inner join vouchertype1 on vouchertype1.vouchertype_id = desr1.vouchertype_id inner join desrdetails1 on desrdetails1.desr_id = aaa.desr_id where vouchertype1.subrelatedto = 39 and desr1.deleted = 0
