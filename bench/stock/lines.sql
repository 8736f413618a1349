-- What every contender but the simple average begins with: the movements that count.
WITH lines AS (
  SELECT g.Item_id, g.Godown_id, g.Batch_id, g.YearNo, g.Date, g.DesrDetails_id, g.GodownItem_id, g.Rate,
         g.IsAdded, g.IsOpeningBal, g.GOriginalVouchertype_id AS Type,
         CASE WHEN g.IsAdded THEN g.Qty ELSE -g.Qty END AS Net,
         CASE WHEN g.IsAdded THEN g.Qty WHEN g.IsOpeningBal THEN -g.Qty ELSE 0 END AS Layer
  FROM GodownItem1 g JOIN Items1 USING (Item_id) JOIN Godown1 USING (Godown_id)
  WHERE NOT g.Optional AND NOT Items1.Deleted AND NOT Godown1.Deleted AND g.YearNo <= :year
    AND (g.Date <= :to OR g.IsOpeningBal)),
