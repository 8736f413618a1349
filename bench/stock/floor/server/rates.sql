-- The quantities of each key.
SELECT "Item_id", "Godown_id", "Batch_id",
  sum(CASE WHEN "Date" >= '{from}' AND NOT "IsOpeningBal" THEN 0 WHEN "IsAdded" THEN "Qty" ELSE -"Qty" END),
  sum(CASE WHEN "Date" >= '{from}' AND NOT "IsOpeningBal" AND "IsAdded" THEN "Qty" END),
  sum(CASE WHEN "Date" >= '{from}' AND NOT "IsOpeningBal" AND "IsAdded" THEN "Qty" * "Rate" END),
  sum(CASE WHEN "Date" >= '{from}' AND NOT "IsOpeningBal" AND NOT "IsAdded" THEN "Qty" END),
  sum(CASE WHEN "Date" >= '{from}' AND NOT "IsOpeningBal" AND NOT "IsAdded" THEN "Qty" * "Rate" END)
FROM "GodownItem1"
WHERE NOT "Optional" AND "YearNo" <= {year} AND ("Date" <= '{to}' OR "IsOpeningBal")
GROUP BY "Item_id", "Godown_id", "Batch_id";
-- The last rate of each item before the period and at its end.
SELECT DISTINCT ON ("Item_id") "Item_id", "Date", "Rate" FROM "GodownItem1"
WHERE NOT "Optional" AND "YearNo" <= {year} AND "Date" < '{from}' AND {wanted}
ORDER BY "Item_id", "Date" DESC;
SELECT DISTINCT ON ("Item_id") "Item_id", "Date", "Rate" FROM "GodownItem1"
WHERE NOT "Optional" AND "YearNo" <= {year} AND "Date" <= '{to}' AND {wanted}
ORDER BY "Item_id", "Date" DESC;
-- The standard rates.
SELECT "Item_id", "SaleOrPurchase", "Rate", "DateFrom", "DateTo" FROM "StandardRate1"
WHERE "DateTo" <= '{to}' AND "YearNo" <= {year} ORDER BY "Item_id", "DateFrom", "DateTo";
