// A stock key at a weighted average that is carried over the years and then goes from month to
// month. Pure arithmetic.
#pragma once

#include <optional>
#include <span>

#include "valuation/Months.h"
#include "valuation/Rates.h"
#include "valuation/StockFigures.h"

namespace pstolvane1 {

// What a year before the books' first day left of a stock key.
struct BalanceYear {
  int year = 0;
  double balance = 0;                     // in minus out
  double entering = 0;                    // inwards, and openings with their sign
  double entering_value = 0;              // the same at their rates
  std::optional<double> opening_balance;  // of its opening lines, where it has any
};

class MonthAverage {
 public:
  // costs are the standard costs of the item, of which the last that counts is taken.
  explicit MonthAverage(std::span<const StandardRate> costs) : costs_(costs) {}

  // In the order of the years. A year with a balance and no value takes that of the last cost of
  // its own or an earlier year, unless it has opening lines that do not net to zero.
  void AddYear(const BalanceYear& year);
  // Movements before the period, and then those of its months.
  void AddBefore(const StockFigure& inwards, const StockFigure& outwards);
  void AddMonth(const StockFigure& inwards, const StockFigure& outwards);

  // What is left, at |value / quantity| of all that came in; a negative balance has a negative
  // value. Sales leave the rate as it is.
  [[nodiscard]] StockFigure Position() const;
  // The value of a balance that no price came in with: at the last cost that begins before the
  // first day for the opening, or in or before the month. Nothing where the balance has a value.
  [[nodiscard]] Currency UnpricedOpening(Date first_day) const;
  [[nodiscard]] Currency UnpricedMonth(const CalendarMonth& month) const;

 private:
  [[nodiscard]] bool IsUnpriced() const;
  [[nodiscard]] float Left() const;

  std::span<const StandardRate> costs_;
  float entered_ = 0;  // quantity
  float gone_ = 0;
  Currency value_;  // of what entered
  float balance_ = 0;
  // Not 0 where the last year left something or the months brought something.
  float priced_ = 0;
};

}  // namespace pstolvane1
