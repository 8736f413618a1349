// Stock as layers that sales are set against, first in first out or last in first out. Pure
// arithmetic.
#pragma once

#include <functional>
#include <span>

#include "session/enmValuationMethod.h"
#include "valuation/StockFigures.h"

namespace pstolvane1 {

// A line of a stock key. An outward opening line is a negative layer.
struct LayerLine {
  float in = 0, out = 0;
  Currency value_in = {}, value_out = {};
  double rate = 0;
  bool in_period = false;  // otherwise before it, as opening lines are
};

// What was sold, from before the period and in it.
struct LayerSales {
  float before = 0, within = 0;
};

// A year's lines of a stock key, those before the period and those in it apart.
struct LayerYear {
  float in = 0, out = 0;
  Currency value_in = {};
  bool in_period = false;
};

// The value of what is left at an average that is carried from year to year: for when the sales
// exceed the layers. Negative for a negative balance. Rows in the order of their years.
[[nodiscard]] Currency StockYearlyAverageValue(std::span<const LayerYear> years,
                                               bool blnOpeningOnly);

// The stock of a key, whose lines come in the order in which sales consume them: the oldest first
// for FifoRate, the newest first for LifoRate. What the sales leave of the layers is the stock, at
// the rates of the layers it stands in: 10 at 5 and 10 at 7 with 15 sold leave 5 at 7 under FIFO
// and 5 at 5 under LIFO. Under FIFO the closing quantity counts the lines before the period twice,
// which is meant. years is asked for only where sales exceed the layers. Error 11 where sales
// before the period meet no inward quantity and the balance is not negative.
[[nodiscard]] StockFigures WalkLayers(std::span<const LayerLine> lines, const LayerSales& sales,
                                      enmValuationMethod method,
                                      const std::function<std::span<const LayerYear>()>& years);

}  // namespace pstolvane1
