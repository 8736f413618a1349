-- under all document filters, which beat the list
--
-- set filter strVouchertypeFilter = Vouchertype1.Vouchertype_id in (7,10,12)
-- set filter btTypeOfentry = 1
-- set filter OptNo = 1
-- call BuyerReport as year
-- sVouchertype_id = 10
select ccc.*,ledgernames1.ledgername as ledgername,desrdetails1.item_id,batches1.batchcode,batches1.engineno from ( select desr1.ledger_id,desr1.desr_id,desr1.related_id,desr1.totalamount/1 as totalamount,terms1.despatchto as buyername,terms1.despatchtoadd1,terms1.despatchtoadd2,terms1.city,terms1.district,desr1.date,terms1.enginenumber as tengineno,terms1.chasisnumber as tchasisno,vouchertype1.subrelatedto from desr1 inner join vouchertype1 on vouchertype1.vouchertype_id = desr1.vouchertype_id inner join terms1 on terms1.desr_id = desr1.desr_id where desr1.optional = 0 and vouchertype1.vouchertype_id in (7,10,12) and desr1.desr_id in (select d.desr_id from desr1 as d inner join ledgernames1 on ledgernames1.ledger_id = d.ledger_id inner join subgroupname1 on subgroupname1.subgroup_id = ledgernames1.subgroup_id  and (subgroupname1.code=2 or subgroupname1.code=1 or subgroupname1.code =41)) and desr1.deleted = 0 and desr1.date between '04/01/2003' and '03/31/2004' ) as ccc inner join ledgernames1 on ledgernames1.ledger_id = ccc.ledger_id inner join desrdetails1 on desrdetails1.desr_id = ccc.desr_id inner join godownitem1 on godownitem1.desrdetails_id = desrdetails1.desrdetails_id inner join batches1 on batches1.batch_id = godownitem1.batch_id order by buyername,ledgername,ccc.desr_id,godownitem1.godownitem_id
