// Stock that no price came in with, at the last standard cost. Pure.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "valuation/Rates.h"
#include "valuation/StockFigures.h"
#include "valuation/StockPeriod.h"

namespace pstolvane1 {

// The year that the figures are of.
struct UnpricedYear {
  StockPeriod period;
  // Nothing in the first year of the books, after which no average is carried on.
  std::optional<std::int32_t> carried_year;
};

// The figures with the last cost that counts times the quantity as the value of the opening and of
// the closing, each where it has a quantity and no value. costs come in the order in which the last
// one counts; where none counts the value stays 0.
//
// For the opening a cost counts that begins before the first day. For the closing it is one that
// ends by the last day in the first year of the books, and one that begins by the last day in a
// carried year; the two differ, and both are meant. In a carried year only the costs of that year
// and of earlier ones count. 10 in stock at a cost of 5 are worth 50, and -10 are worth -50.
[[nodiscard]] StockFigures ValueUnpricedStock(StockFigures figures,
                                              std::span<const StandardRate> costs,
                                              const UnpricedYear& year);

}  // namespace pstolvane1
