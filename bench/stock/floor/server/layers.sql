-- The lines in the order of the walk, and nothing else.
SELECT "Item_id", "Godown_id", "Batch_id", "YearNo", "Date", "IsAdded", "IsOpeningBal", "Qty", "Rate"
FROM "GodownItem1"
WHERE NOT "Optional" AND "YearNo" <= {year} AND ("Date" <= '{to}' OR "IsOpeningBal")
ORDER BY "YearNo" {direction} NULLS {nulls}, "Date" {direction} NULLS {nulls},
  "DesrDetails_id" {direction} NULLS {nulls}, "GodownItem_id" {direction} NULLS {nulls};
