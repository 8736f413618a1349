// The query of stock at a rate that is hunted for.
#pragma once

#include <string>

#include "session/FilterClauses.h"
#include "stock/StockArguments.h"

namespace pstolvane1 {

// One row an item, godown and batch with names and units, by item name, and under a tree
// ItemCategory_Id: QTYOP, QTYIN, VALUEIN, QTYOUT and VALUEOUT. The last purchase and the last sale
// also list keys that move after the period alone; all five are Null there. Not normalised.
[[nodiscard]] std::string ComposeHuntedRate(const StockArguments& arguments,
                                            const DocumentFilter& filter);

}  // namespace pstolvane1
