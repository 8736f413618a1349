// The query of stock at the standard cost or the standard selling price.
#pragma once

#include <string>

#include "session/FilterClauses.h"
#include "stock/StockArguments.h"

namespace pstolvane1 {

// One row an item, godown and batch with names and units, by item name, and under a tree
// ItemCategory_Id: qtyop, qtyin, qtyinvalue, qtyout, qtyoutvalue. Not normalised.
[[nodiscard]] std::string ComposeStandardRate(const StockArguments& arguments,
                                              const DocumentFilter& filter);

}  // namespace pstolvane1
