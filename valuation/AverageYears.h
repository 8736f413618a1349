// The years of a stock key at the weighted average. Pure arithmetic.
#pragma once

#include <cstdint>
#include <span>

#include "session/data/SureSum.h"
#include "valuation/AverageFold.h"
#include "valuation/MovedLine.h"
#include "valuation/Rates.h"
#include "valuation/StockFigures.h"
#include "valuation/StockPeriod.h"

namespace pstolvane1 {

// What the lines of one year come to, whatever their order.
class AverageYearSums {
 public:
  explicit AverageYearSums(std::int32_t year) : year_(year) {}

  void Add(const MovedLine& line);

  [[nodiscard]] std::int32_t Year() const { return year_; }
  // A position's value is |V / E| as money times Q, with V and E the value and quantity that
  // entered and Q the quantity, and 0 where E is 0. Error 6 beyond the ranges.
  [[nodiscard]] AverageYear Opening() const;
  [[nodiscard]] AverageYear Closing() const;
  [[nodiscard]] StockFigure Inwards() const;
  [[nodiscard]] StockFigure Outwards() const;

 private:
  struct Position {
    void Add(const MovedLine& line);
    [[nodiscard]] AverageYear Valued() const;
    SureSum quantity = {}, entering = {}, entering_value = {};
  };
  struct Moved {
    void Add(const MovedLine& line);
    [[nodiscard]] StockFigure Figure() const;
    SureSum quantity = {}, value = {};
  };

  std::int32_t year_;
  Position opening_, closing_;
  Moved came_, went_;
};

// The figures of a key in the first year of the books, which has nothing to carry. Where nothing
// priced came in, it is valued at the last of its item's costs that counts.
[[nodiscard]] StockFigures FiguresOfFirstYear(const AverageYearSums& year,
                                              std::span<const StandardRate> costs,
                                              const StockPeriod& period);

// The figures of a key whose average is carried over its years. At least one, in their order. The
// earliest is valued at the last cost that counts where nothing priced came in. What came and went
// is that of the last year alone.
[[nodiscard]] StockFigures mStock_MergeYears(std::span<const AverageYearSums> years,
                                             std::span<const StandardRate> costs,
                                             const StockPeriod& period);

}  // namespace pstolvane1
