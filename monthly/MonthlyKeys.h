// The items and stock keys of a month ledger, and what its methods read beside them. Query texts
// are not normalised.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <vector>

#include "monthly/MonthlySubject.h"
#include "movements/RateQueries.h"
#include "movements/StockKeyColumns.h"
#include "session/data/RowGroups.h"
#include "valuation/ItemRates.h"

namespace pstolvane1 {

// item_id of the ledger's items in their order: the one, with its uom, altuom and relformula; those
// of a group alone that were there in the year; for a godown any.
[[nodiscard]] std::string ComposeMonthlyItems(const MonthlyArguments& arguments);
// The rows of Standardrate1 that end by the last day, for the items of the ledger, the one in force
// last.
[[nodiscard]] std::string ComposeMonthlyStandards(const MonthlyArguments& arguments,
                                                  StandardRates which);

// "year * 100 + month" of a date column.
[[nodiscard]] std::string MonthKeyOf(std::string_view date);

struct StockKey {
  std::int64_t item_id = 0;
  GodownBatch place = {};
};

// The stock keys of rowsets with item_id, godown_id and batch_id: each once, in their order.
[[nodiscard]] std::vector<StockKey> StockKeysOf(std::initializer_list<const RowGroups*> by_key);

// The units of an item's ledger; none for a group or where no row tells them.
[[nodiscard]] StockUnits ReadMonthlyUnits(const MonthlyArguments& arguments,
                                          const Recordset& items);

}  // namespace pstolvane1
