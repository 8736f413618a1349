// What is reckoned of goods that went out to a party and came back, or came in and went back. Pure
// arithmetic.
#pragma once

#include <optional>

#include "session/data/Currency.h"
#include "session/data/Date.h"

namespace pstolvane1 {

enum class MovementSide { kSales, kPurchases };

// Quantities and values of a period; unscaled. Quantities of a line stand as they are read, those
// of a group and of the report are sums of 32-bit floats.
struct MovementFigures {
  double in = 0, out = 0;
  double value_in = 0, value_out = 0;
};

// Sums of lines: quantities lose precision as 32-bit floats do, values are exact.
struct MovementSums {
  float in = 0, out = 0;
  Currency value_in, value_out;

  void Add(const MovementFigures& line);  // error 6 beyond the ranges
  void Add(const MovementSums& sums);
  [[nodiscard]] MovementFigures Figures() const;
};

// What stayed sold, or stayed bought, after returns. Out 10, in 2: 8 sold.
[[nodiscard]] double BalanceOf(MovementSide side, const MovementFigures& figures);
// Its value.
[[nodiscard]] double NetValueOf(MovementSide side, const MovementFigures& figures);
// The percentage of the movement that came back, divided first and multiplied after: out 10, in 2
// is 20. Nothing where either is 0.
[[nodiscard]] std::optional<double> ReturnedPercent(MovementSide side,
                                                    const MovementFigures& figures);
// The days from the first to the last without adding one, so that 1 to 30 April are 29; a single
// day is 1.
[[nodiscard]] double DaysOf(Date from, Date to);

}  // namespace pstolvane1
