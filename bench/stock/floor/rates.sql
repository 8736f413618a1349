-- The quantities of each key.
SELECT Item_id, Godown_id, Batch_id,
  sum(CASE WHEN Date >= '{from}' AND NOT IsOpeningBal THEN 0 WHEN IsAdded THEN Qty ELSE -Qty END),
  sum(CASE WHEN Date >= '{from}' AND NOT IsOpeningBal AND IsAdded THEN Qty ELSE 0 END),
  sum(CASE WHEN Date >= '{from}' AND NOT IsOpeningBal AND IsAdded THEN Qty * Rate ELSE 0 END),
  sum(CASE WHEN Date >= '{from}' AND NOT IsOpeningBal AND NOT IsAdded THEN Qty ELSE 0 END),
  sum(CASE WHEN Date >= '{from}' AND NOT IsOpeningBal AND NOT IsAdded THEN Qty * Rate ELSE 0 END)
FROM GodownItem1
WHERE Optional = 0 AND YearNo <= {year} AND (Date <= '{to}' OR IsOpeningBal)
GROUP BY Item_id, Godown_id, Batch_id;
-- The last rate of each item before the period and at its end.
SELECT Item_id, max(Date), Rate FROM GodownItem1
WHERE Optional = 0 AND YearNo <= {year} AND Date < '{from}' AND {wanted} GROUP BY Item_id;
SELECT Item_id, max(Date), Rate FROM GodownItem1
WHERE Optional = 0 AND YearNo <= {year} AND Date <= '{to}' AND {wanted} GROUP BY Item_id;
-- The standard rates.
SELECT Item_id, SaleOrPurchase, Rate, DateFrom, DateTo FROM StandardRate1
WHERE DateTo <= '{to}' AND YearNo <= {year} ORDER BY Item_id, DateFrom, DateTo;
