// The queries of stock at the standard cost or the standard selling price.
#pragma once

#include <string>

#include "session/FilterClauses.h"
#include "stock/StockArguments.h"

namespace pstolvane1 {

// One row an item, godown and batch with names and units, by item name, and under a tree
// ItemCategory_Id: qtyop, qtyin, qtyinvalue, qtyout, qtyoutvalue. Not normalised, as the other.
[[nodiscard]] std::string ComposeStandardRate(const StockArguments& arguments,
                                              const DocumentFilter& filter);
// The movements behind the standards, the latest last: inward ones of purchases for costs, of both
// senses of sales for prices, and opening lines.
[[nodiscard]] std::string ComposeStandardRateRows(const StockArguments& arguments);

}  // namespace pstolvane1
