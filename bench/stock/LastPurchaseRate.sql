-- The last rate of a window for each item, and what stands in for it.
WITH lines AS (
  SELECT g.Item_id, g.Godown_id, g.Batch_id, g.YearNo, g.Date, g.DesrDetails_id, g.GodownItem_id, g.Rate,
         g.IsAdded, g.IsOpeningBal, g.GOriginalVouchertype_id AS Type,
         CASE WHEN g.IsAdded THEN g.Qty ELSE -g.Qty END AS Net,
         CASE WHEN g.IsAdded THEN g.Qty WHEN g.IsOpeningBal THEN -g.Qty ELSE 0 END AS Layer
  FROM GodownItem1 g JOIN Items1 USING (Item_id) JOIN Godown1 USING (Godown_id)
  WHERE NOT g.Optional AND NOT Items1.Deleted AND NOT Godown1.Deleted AND g.YearNo <= :year
    AND (g.Date <= :to OR g.IsOpeningBal)),
stock AS (
  SELECT Item_id, Godown_id, Batch_id, sum(Net) AS Stock FROM lines GROUP BY Item_id, Godown_id, Batch_id),
openings AS (
  SELECT Item_id, Godown_id, Batch_id, Rate, row_number()
    OVER (PARTITION BY Item_id, Godown_id, Batch_id ORDER BY GodownItem_id DESC) AS Latest
  FROM lines WHERE IsOpeningBal),
standards AS (
  SELECT Item_id, SaleOrPurchase, Rate, row_number()
    OVER (PARTITION BY Item_id, SaleOrPurchase ORDER BY DateFrom DESC, DateTo DESC) AS Latest
  FROM StandardRate1 WHERE DateTo <= :to AND YearNo <= :year),
actuals AS (
  SELECT Item_id, Rate, row_number()
    OVER (PARTITION BY Item_id ORDER BY YearNo DESC, Date DESC, GodownItem_id DESC) AS Latest
  FROM lines WHERE Date IS NOT NULL AND NOT IsOpeningBal AND IsAdded AND Type IN (7, 14, 0))
SELECT sum(Stock * coalesce(nullif(a.Rate, 0), nullif(o.Rate, 0), c.Rate, 0))
FROM stock s
LEFT JOIN actuals a ON a.Item_id = s.Item_id AND a.Latest = 1
LEFT JOIN openings o ON o.Item_id = s.Item_id AND o.Godown_id = s.Godown_id AND o.Batch_id = s.Batch_id
  AND o.Latest = 1
LEFT JOIN standards c ON c.Item_id = s.Item_id AND NOT c.SaleOrPurchase AND c.Latest = 1
LEFT JOIN standards p ON p.Item_id = s.Item_id AND p.SaleOrPurchase AND p.Latest = 1;
