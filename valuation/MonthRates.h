// The rate that a stock key is valued at month by month: that of the last purchase or the last
// sale, or the standard cost or price. Pure.
#pragma once

#include <map>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "session/enmValuationMethod.h"
#include "valuation/ItemRates.h"
#include "valuation/Months.h"

namespace pstolvane1 {

// The rates of one item. Those of the opening stand or begin before the first day, those of a month
// in or before it; of each kind the last one in the order of the rows counts. A rate of 0 is none.
//
// LastPurchaseRate: the last movement, in the place of an opening line and of none the key's last
// opening line; else the last standard cost.
// LastSaleRate: the last outward movement, in the same way; else the last standard price, the last
// standard cost, the last inward movement.
// standardrate: the last standard cost; else the last movement, an opening line as it is; else the
// key's last opening line.
// StandardPrice: the last standard price, outward movement, outward opening line of the key; else
// the last standard cost, inward movement, inward opening line of the key.
class MonthRates {
 public:
  // The rows outlive this.
  MonthRates(std::span<const ActualRate> actual, std::span<const StandardRate> standard,
             const StockPeriod& period, const std::vector<CalendarMonth>& months);

  // 0 where no rate reaches the key. Place 0 is the opening, 1 the first month.
  [[nodiscard]] double Of(enmValuationMethod method, const GodownBatch& key,
                          std::size_t place) const;

 private:
  // The last row at each place, nullptr where there is none.
  template <typename Rate>
  using Places = std::vector<const Rate*>;
  using Openings = std::map<GodownBatch, const ActualRate*>;

  [[nodiscard]] static double OpeningOf(const Openings& openings, const GodownBatch& key);

  Places<ActualRate> movements_, outward_, inward_;
  Places<StandardRate> costs_, prices_;
  Openings openings_, outward_openings_, inward_openings_;
};

}  // namespace pstolvane1
