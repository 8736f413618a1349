// The lines of a stock key as the books hold them, and what layers are reckoned from: layers, sales
// and years. Pure arithmetic.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "valuation/Layers.h"

namespace pstolvane1 {

struct StockLine {
  // What the line is to the layers.
  enum class Kind : std::uint8_t { kNothing, kInward, kOutwardOpening, kOutward };
  // When the line sold something. An outward opening line with a date sold as well.
  enum class Sale : std::uint8_t { kNone, kBefore, kWithin };

  Kind kind = Kind::kNothing;
  Sale sale = Sale::kNone;
  std::int32_t year = 0;
  bool in_period = false;  // otherwise before it, as opening lines are
  // Without the sign of the kind. The amount is the quantity at the rate, the value the amount as
  // money.
  double quantity = 0, amount = 0, rate = 0;
  Currency value = {};
};

// Inward lines are layers, outward opening lines negative ones. Error 6 where a quantity leaves
// the range of its type.
[[nodiscard]] LayerLine AsLayer(const StockLine& line);
[[nodiscard]] LayerSales SumSales(std::span<const StockLine> lines);
// One row a year and side of the period's first day, in their order; also for years of which no
// line is a layer or goes out.
[[nodiscard]] std::vector<LayerYear> SumYears(std::span<const StockLine> lines);

}  // namespace pstolvane1
