-- a host condition with LIKE, IN, NOT, BETWEEN and a bracketed name
--
-- call POrderTextQuery
-- strFilter = Desr1.Prefix Like 'PO%' And Not (Desr1.[Narration] Is Null) And
--   DesrDetails1.Item_id In (1,2,3) And DesrDetails1.Price Between 1.5 And 99.75
 select items1.itemname , items1.itempartno,qry1.*  from ( select desr1.desr_id, desrdetails1.item_id , desr1.desrrefno , desr1.prefix,desr1.suffix,desr1.date,(desrdetails1.qtydespin - desrdetails1.qtydespout) as qty  from desr1 inner join  desrdetails1 on desr1.desr_id = desrdetails1.desr_id  where desr1.prefix like 'po%' and not (desr1.[narration] is null) and desrdetails1.item_id in (1,2,3) and desrdetails1.price between 1.5 and 99.75 ) as qry1 inner join items1 on items1.item_id = qry1.item_id order by qry1.date , qry1.desr_id , qry1.item_id , qry1.qty 
