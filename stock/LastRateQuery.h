// The queries of stock at the rate of the last purchase or the last sale.
#pragma once

#include <string>

#include "session/FilterClauses.h"
#include "stock/StockArguments.h"

namespace pstolvane1 {

// A shape command: one row an item, godown and batch with names and units, by item name, and under
// a tree ItemCategory_Id; its chapter CHPQTY holds at most one row with QTYOP, QTYIN, VALUEIN,
// QTYOUT and VALUEOUT. Not normalised, as the others.
[[nodiscard]] std::string ComposeLastRate(const StockArguments& arguments,
                                          const DocumentFilter& filter);
// The movements that give rates, the latest last: inward ones of purchases, or of both senses for
// sales, and opening lines.
[[nodiscard]] std::string ComposeLastRateRows(const StockArguments& arguments);

}  // namespace pstolvane1
