-- commission of one item names the items, which the query does not join
--
-- call Commission_Initial as commission
-- reptype = rtCommission_Initial_Itemwise
-- lngId1 = 5
--
-- refused: column 982: unknown table or alias "items1"
select ' ' as parent,employee1.employee_id as parent_id,sales.item_id as item_id,sales.compercent as compercent,sales.totalsales as totalsales from (select desr1.employee_id,desrdetails1.item_id,employeecommision.cpercent as compercent,isnull(sum(desrdetails1.qtydespout * desrdetails1.price),0)/1 as totalsales from desr1 inner join desrdetails1 on desrdetails1.desr_id = desr1.desr_id inner join vouchertype1 on vouchertype1.vouchertype_id = desr1.vouchertype_id left join employeecommision on employeecommision.employeecommision_id = (select max(slab.employeecommision_id) from employeecommision as slab where slab.employee_id = desr1.employee_id and slab.item_id = desrdetails1.item_id and slab.datefrom <= desr1.date and slab.qtyto <= desrdetails1.qtydespout) where vouchertype1.relatedto = 10 and desr1.date between '04/01/2003' and '04/30/2003' and desr1.deleted = 0 and vouchertype1.subrelatedto <> 43 and desrdetails1.desrdetdate between '04/01/2003' and '04/30/2003' and items1.item_id = 5 group by desr1.employee_id,desrdetails1.item_id,employeecommision.cpercent) as sales inner join employee1 on employee1.employee_id = sales.employee_id order by sales.item_id,employee1.employeename,employee1.employee_id,sales.compercent
