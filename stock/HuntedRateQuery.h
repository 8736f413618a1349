// The query of stock at a rate that is hunted for.
#pragma once

#include <string>

#include "session/FilterClauses.h"
#include "stock/StockArguments.h"

namespace pstolvane1 {

// Keys with lines, see KeyQuery; each line up to the end of the period counts in the opening or in
// what came or went. The last purchase and the last sale also list keys that move later alone,
// which have no lines.
[[nodiscard]] std::string ComposeHuntedRate(const StockArguments& arguments,
                                            const DocumentFilter& filter);

}  // namespace pstolvane1
