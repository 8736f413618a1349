-- The year's opening, and what its documents moved.
SELECT "Item_id", "OpeningQuantity", "OpeningValue" FROM "ItemDetailsAsLedger" WHERE "YearNo" = {year};
SELECT line."Item_id", sum("QtyDespIn"), sum("QtyDespIn" * "Price"), sum("QtyDespOut"), sum("QtyDespOut" * "Price")
FROM "DesrDetails1" AS line JOIN "Desr1" AS document USING ("Desr_id")
WHERE "AffectStock" AND NOT document."Optional" AND NOT document."Deleted" AND "DesrDetDate" BETWEEN '{from}' AND '{to}'
GROUP BY line."Item_id";
