-- Layers left by the sales; stock below zero is left out.
WITH lines AS (
  SELECT g.Item_id, g.Godown_id, g.Batch_id, g.YearNo, g.Date, g.DesrDetails_id, g.GodownItem_id, g.Rate,
         g.IsAdded, g.IsOpeningBal, g.GOriginalVouchertype_id AS Type,
         CASE WHEN g.IsAdded THEN g.Qty ELSE -g.Qty END AS Net,
         CASE WHEN g.IsAdded THEN g.Qty WHEN g.IsOpeningBal THEN -g.Qty ELSE 0 END AS Layer
  FROM GodownItem1 g JOIN Items1 USING (Item_id) JOIN Godown1 USING (Godown_id)
  WHERE NOT g.Optional AND NOT Items1.Deleted AND NOT Godown1.Deleted AND g.YearNo <= :year
    AND (g.Date <= :to OR g.IsOpeningBal)),
walked AS (
  SELECT Layer, Rate,
         sum(Layer) OVER (PARTITION BY Item_id, Godown_id, Batch_id
                          ORDER BY YearNo DESC, Date DESC, DesrDetails_id DESC ROWS UNBOUNDED PRECEDING) AS Walked,
         sum(CASE WHEN IsAdded OR Date IS NULL THEN 0 ELSE -Net END)
           OVER (PARTITION BY Item_id, Godown_id, Batch_id) AS Sold
  FROM lines)
SELECT sum(Rate * CASE WHEN Walked - Layer >= Sold THEN Layer WHEN Walked > Sold THEN Walked - Sold ELSE 0 END)
FROM walked;
