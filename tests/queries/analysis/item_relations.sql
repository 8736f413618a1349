-- which items are told as others
--
-- call CustomerItemwise_Analysis as april
-- reptype = rtMovement_SalesReturns_ItemRelationAnalysis
-- rowset rsItems = SELECT Item_id, ItemName, ItemDesc, ItemPartNo FROM Items1
--
-- query 2
select * from itemrelationship
