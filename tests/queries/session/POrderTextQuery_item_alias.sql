-- an item alias of name and part number, joined with +
--
-- set alias taItem = Items1.ItemName + ' (' + Items1.ItemPartNo + ')'
-- call POrderTextQuery
-- strFilter = Desr1.Optional = 0
 select items1.itemname + ' (' + items1.itempartno + ')' , items1.itempartno,qry1.*  from ( select desr1.desr_id, desrdetails1.item_id , desr1.desrrefno , desr1.prefix,desr1.suffix,desr1.date,(desrdetails1.qtydespin - desrdetails1.qtydespout) as qty  from desr1 inner join  desrdetails1 on desr1.desr_id = desrdetails1.desr_id  where desr1.optional = 0 ) as qry1 inner join items1 on items1.item_id = qry1.item_id order by qry1.date , qry1.desr_id , qry1.item_id , qry1.qty 
