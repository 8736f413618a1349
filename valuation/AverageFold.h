// A weighted average carried from year to year. Pure arithmetic.
#pragma once

#include "session/data/Currency.h"
#include "valuation/StockFigures.h"

namespace pstolvane1 {

// The position of a stock key at a day, of one year's movements alone.
struct AverageYear {
  float quantity = 0;           // in minus out
  Currency value;               // the quantity at the year's own average
  float entering_quantity = 0;  // what enters the average: inwards, and openings with their sign
  Currency entering_value;
};

// After each year but the first the next one starts from what this one left, as if that were an
// opening purchase. The opening side does not, and sums its base over all years; that is meant.
enum class AverageBase { kRestartsEachYear, kSumsAllYears };

// One side of a stock key, over its years in their order.
class AverageFold {
 public:
  // From the first year's quantity and value, however they were valued.
  AverageFold(const StockFigure& first, AverageBase base)
      : position_(first), base_quantity_(first.quantity), base_value_(first.value), base_(base) {}

  // With Q and V the quantity and value, I and W the base: Q, I and W grow by the year's, then
  // V = |W / I| * Q, rounded to money; V stays where I is 0. 15 at 90 and a year with 5 at 50
  // entering give 20 at 140.
  void AddYear(const AverageYear& year);

  [[nodiscard]] const StockFigure& Position() const { return position_; }

 private:
  StockFigure position_;
  float base_quantity_;
  Currency base_value_;
  AverageBase base_;
};

}  // namespace pstolvane1
