// Money in a test's own words.
#pragma once

#include "valuation/StockFigures.h"

namespace pstolvane1 {

inline Currency Rupees(double amount) { return Currency::FromDouble(amount); }

}  // namespace pstolvane1
