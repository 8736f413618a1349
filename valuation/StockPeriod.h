// The period of a statement, and its two ends.
#pragma once

#include "session/data/Date.h"

namespace pstolvane1 {

// A day without its time, as the queries name it.
[[nodiscard]] Date DayOf(Date date);

// The first and last day of a statement, without times. Its opening stands at the day before the
// first.
struct StockPeriod {
  Date from, to;
};

enum class StockSide { kOpening, kClosing };

}  // namespace pstolvane1
