// Stock month by month: plain data.
#pragma once

#include <optional>
#include <vector>

#include "valuation/StockFigures.h"

namespace pstolvane1 {

// What a month brought and took, and what is there at its end.
struct MonthFigures {
  StockFigure inwards = {}, outwards = {}, closing = {};

  MonthFigures& operator+=(const MonthFigures& other) {
    inwards += other.inwards;
    outwards += other.outwards;
    closing += other.closing;
    return *this;
  }
};

struct MonthLedger {
  StockFigure opening;
  std::vector<MonthFigures> months;  // oldest first
  // What came and went before the period, where the opening line has a profit of its own.
  std::optional<MonthFigures> before = {};
};

}  // namespace pstolvane1
