// The stock keys of a month ledger, and what its methods read beside them. Query texts are not
// normalised.
#pragma once

#include <string>

#include "monthly/MonthlySubject.h"
#include "movements/RateQueries.h"
#include "movements/StockKeyColumns.h"
#include "session/data/Recordset.h"
#include "valuation/ItemRates.h"

namespace pstolvane1 {

// One row an item, godown and batch with units, in their order: item_id, godown_id, batch_id, uom,
// altuom, relformula.
[[nodiscard]] std::string ComposeMonthlyKeys(const MonthlyArguments& arguments);
// The rows of Standardrate1 that end by the last day, for the items of the ledger, the one in force
// last.
[[nodiscard]] std::string ComposeMonthlyStandards(const MonthlyArguments& arguments,
                                                  StandardRates which);

// "year * 100 + month" of a date column.
[[nodiscard]] std::string MonthKeyOf(std::string_view date);

// Where the ids of a stock key stand in a source rowset.
struct MonthlyKeyColumns {
  explicit MonthlyKeyColumns(const Recordset& rows)
      : item_id(rows.Column("Item_Id")),
        godown_id(rows.Column("Godown_Id")),
        batch_id(rows.Column("Batch_Id")) {}

  [[nodiscard]] GodownBatch Key(const Recordset::Row& row) const {
    return {row.Int64(godown_id), row.Int64(batch_id)};
  }

  ColumnHandle item_id, godown_id, batch_id;
};

// The units of an item's ledger; none for a group or where no row tells them.
[[nodiscard]] StockUnits ReadMonthlyUnits(const MonthlyArguments& arguments, const Recordset& keys);

}  // namespace pstolvane1
