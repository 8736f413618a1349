-- One rate for an item and year, from the yearly totals and the document lines.
WITH lines AS (
  SELECT Item_id, OpeningQuantity AS Came, OpeningValue AS Worth, 0 AS Went
  FROM ItemDetailsAsLedger JOIN Items1 USING (Item_id) WHERE YearNo = :year AND NOT Items1.Deleted
  UNION ALL
  SELECT Item_id, QtyDespIn, QtyDespIn * Price, QtyDespOut
  FROM DesrDetails1 JOIN Desr1 USING (Desr_id) JOIN Items1 USING (Item_id)
  WHERE AffectStock AND NOT Desr1.Optional AND NOT Desr1.Deleted AND NOT Items1.Deleted
    AND DesrDetDate BETWEEN :begin AND :to)
SELECT sum(Value) FROM (
  SELECT coalesce(sum(Worth) / nullif(sum(Came), 0) * (sum(Came) - sum(Went)), 0) AS Value
  FROM lines GROUP BY Item_id);
