// What the lines of a stock key come to over the years. Pure arithmetic.
#pragma once

#include "session/data/SureSum.h"
#include "valuation/MovedLine.h"
#include "valuation/RateHunt.h"

namespace pstolvane1 {

// The sums of the lines up to the end of the period, whatever their order. A line without a
// quantity counts as nothing beside others.
class KeySums {
 public:
  void Add(const MovedLine& line);

  // Nothing without a line. Error 94 where all lines count in one of the figures and none of them
  // tells its quantity, or its amount; error 6 beyond the ranges.
  [[nodiscard]] KeyQuantities Quantities() const;

 private:
  SureSum opening_ = {}, came_ = {}, value_in_ = {}, went_ = {}, value_out_ = {};
};

}  // namespace pstolvane1
