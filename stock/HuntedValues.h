// Stock keys valued at a rate that is hunted for.
#pragma once

#include <memory>
#include <optional>

#include "movements/RateRows.h"
#include "session/ReportFrame.h"
#include "valuation/ItemRates.h"
#include "valuation/RateHunt.h"
#include "valuation/StockFigures.h"

namespace pstolvane1 {

// What the books tell of a key: quantities, and the values of what came and went. The closing is
// the opening with what came and without what went.
struct KeyQuantities {
  double opening = 0, closing = 0;
  StockFigure inwards = {}, outwards = {};
};

// Reads the standard rates from Rs1, the actual ones from Rs2, and the period and the method from
// the module.
class HuntedValues {
 public:
  explicit HuntedValues(const ReportFrame& frame);

  // Opening and closing quantities at their rates. Keys of an item are best asked for together.
  [[nodiscard]] StockFigures Value(const KeyQuantities& quantities, std::int64_t item_id,
                                   const GodownBatch& key);

 private:
  enmValuationMethod method_;
  StockPeriod period_;
  StandardRateRows standard_;
  ActualRateRows actual_;
  std::int64_t item_id_ = 0;
  std::optional<ItemRates> item_;
};

}  // namespace pstolvane1
