// The query of stock at the rate of the last purchase or the last sale.
#pragma once

#include <string>

#include "session/FilterClauses.h"
#include "stock/StockArguments.h"

namespace pstolvane1 {

// A shape command: one row an item, godown and batch with names and units, by item name, and under
// a tree ItemCategory_Id; its chapter CHPQTY holds at most one row with QTYOP, QTYIN, VALUEIN,
// QTYOUT and VALUEOUT. Not normalised.
[[nodiscard]] std::string ComposeLastRate(const StockArguments& arguments,
                                          const DocumentFilter& filter);

}  // namespace pstolvane1
