-- The last rate of a window for each item, and what stands in for it.
stock AS (
  SELECT Item_id, Godown_id, Batch_id, sum(Net) AS Stock FROM lines GROUP BY Item_id, Godown_id, Batch_id),
openings AS (
  SELECT Item_id, Godown_id, Batch_id, Rate, row_number()
    OVER (PARTITION BY Item_id, Godown_id, Batch_id ORDER BY GodownItem_id DESC) AS Latest
  FROM lines WHERE IsOpeningBal),
standards AS (
  SELECT Item_id, SaleOrPurchase, Rate, row_number()
    OVER (PARTITION BY Item_id, SaleOrPurchase ORDER BY DateFrom DESC, DateTo DESC) AS Latest
  FROM StandardRate1 WHERE DateTo {bound} :to AND YearNo <= :year),
actuals AS (
  SELECT Item_id, Rate, row_number()
    OVER (PARTITION BY Item_id ORDER BY {latest}, GodownItem_id DESC) AS Latest
  FROM lines WHERE Date IS NOT NULL AND NOT IsOpeningBal AND {wanted})
SELECT sum(Stock * coalesce({chain}, 0))
FROM stock s
LEFT JOIN actuals a ON a.Item_id = s.Item_id AND a.Latest = 1
LEFT JOIN openings o ON o.Item_id = s.Item_id AND o.Godown_id = s.Godown_id AND o.Batch_id = s.Batch_id
  AND o.Latest = 1
LEFT JOIN standards c ON c.Item_id = s.Item_id AND NOT c.SaleOrPurchase AND c.Latest = 1
LEFT JOIN standards p ON p.Item_id = s.Item_id AND p.SaleOrPurchase AND p.Latest = 1;
