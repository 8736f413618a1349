-- The year's opening, and what its documents moved.
SELECT Item_id, OpeningQuantity, OpeningValue FROM ItemDetailsAsLedger WHERE YearNo = {year};
SELECT DesrDetails1.Item_id, sum(QtyDespIn), sum(QtyDespIn * Price), sum(QtyDespOut), sum(QtyDespOut * Price)
FROM DesrDetails1 JOIN Desr1 USING (Desr_id)
WHERE AffectStock AND NOT Desr1.Optional AND NOT Desr1.Deleted AND DesrDetDate BETWEEN '{from}' AND '{to}'
GROUP BY DesrDetails1.Item_id;
