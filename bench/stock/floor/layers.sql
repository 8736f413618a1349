-- The lines in the order of the walk, and nothing else.
SELECT Item_id, Godown_id, Batch_id, YearNo, Date, IsAdded, IsOpeningBal, Qty, Rate
FROM GodownItem1
WHERE Optional = 0 AND YearNo <= {year} AND (Date <= '{to}' OR IsOpeningBal)
ORDER BY YearNo {direction}, Date {direction}, DesrDetails_id {direction}, GodownItem_id {direction};
