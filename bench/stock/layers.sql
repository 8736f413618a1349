-- Layers left by the sales; stock below zero is left out.
walked AS (
  SELECT Layer, Rate,
         sum(Layer) OVER (PARTITION BY Item_id, Godown_id, Batch_id
                          ORDER BY YearNo {direction}, Date {direction}, DesrDetails_id {direction} ROWS UNBOUNDED PRECEDING) AS Walked,
         sum(CASE WHEN IsAdded OR Date IS NULL THEN 0 ELSE -Net END)
           OVER (PARTITION BY Item_id, Godown_id, Batch_id) AS Sold
  FROM lines)
SELECT sum(Rate * CASE WHEN Walked - Layer >= Sold THEN Layer WHEN Walked > Sold THEN Walked - Sold ELSE 0 END)
FROM walked;
