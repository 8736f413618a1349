-- Each year's average, carried into the next; years are numbered within their key by a window.
years AS (
  SELECT Item_id, Godown_id, Batch_id, YearNo, sum(Net) AS Net, sum(Layer) AS Came, sum(Layer * Rate) AS Worth,
         row_number() OVER (PARTITION BY Item_id, Godown_id, Batch_id ORDER BY YearNo) AS Place
  FROM lines GROUP BY Item_id, Godown_id, Batch_id, YearNo),
carried AS (
  SELECT Item_id, Godown_id, Batch_id, Place, Net AS Stock,
         coalesce(abs(round(Worth / nullif(Came, 0), 4)),
                  (SELECT Rate FROM StandardRate1 r
                   WHERE r.Item_id = years.Item_id AND NOT SaleOrPurchase AND DateTo <= :to AND r.YearNo <= years.YearNo
                   ORDER BY DateFrom DESC, DateTo DESC LIMIT 1), 0) * Net AS Value
  FROM years WHERE Place = 1
  UNION ALL
  SELECT y.Item_id, y.Godown_id, y.Batch_id, y.Place, c.Stock + y.Net,
         coalesce(abs((c.Value + y.Worth) / nullif(c.Stock + y.Came, 0)) * (c.Stock + y.Net), c.Value)
  FROM carried c JOIN years y ON y.Item_id = c.Item_id AND y.Godown_id = c.Godown_id
    AND y.Batch_id = c.Batch_id AND y.Place = c.Place + 1)
SELECT sum(Value) FROM (
  SELECT Value, row_number() OVER (PARTITION BY Item_id, Godown_id, Batch_id ORDER BY Place DESC) AS Latest
  FROM carried) WHERE Latest = 1;
