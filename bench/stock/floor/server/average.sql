-- What enters and what is left up to both days, and what moved between them, by key and year.
SELECT "Item_id", "Godown_id", "Batch_id", "YearNo",
  sum(CASE WHEN "IsAdded" THEN "Qty" ELSE -"Qty" END),
  sum(CASE WHEN "IsAdded" THEN "Qty" WHEN "IsOpeningBal" THEN -"Qty" END),
  sum(CASE WHEN "IsAdded" THEN "Qty" WHEN "IsOpeningBal" THEN -"Qty" END * "Rate"),
  sum(CASE WHEN "Date" >= '{from}' THEN 0 WHEN "IsAdded" THEN "Qty" ELSE -"Qty" END),
  sum(CASE WHEN "Date" >= '{from}' THEN 0 WHEN "IsAdded" THEN "Qty" WHEN "IsOpeningBal" THEN -"Qty" END),
  sum(CASE WHEN "Date" >= '{from}' THEN 0 WHEN "IsAdded" THEN "Qty" WHEN "IsOpeningBal" THEN -"Qty" END * "Rate"),
  sum(CASE WHEN "Date" >= '{from}' AND "IsAdded" THEN "Qty" END),
  sum(CASE WHEN "Date" >= '{from}' AND "IsAdded" THEN "Qty" * "Rate" END),
  sum(CASE WHEN "Date" >= '{from}' AND NOT "IsAdded" THEN "Qty" END),
  sum(CASE WHEN "Date" >= '{from}' AND NOT "IsAdded" THEN "Qty" * "Rate" END)
FROM "GodownItem1"
WHERE NOT "Optional" AND "YearNo" <= {year} AND ("Date" <= '{to}' OR "Date" IS NULL)
GROUP BY "Item_id", "Godown_id", "Batch_id", "YearNo";
