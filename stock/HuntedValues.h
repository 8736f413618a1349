// Stock keys valued at a rate that is hunted for.
#pragma once

#include <memory>
#include <optional>

#include "movements/RateReader.h"
#include "session/ReportFrame.h"
#include "valuation/ItemRates.h"
#include "valuation/RateHunt.h"
#include "valuation/StockFigures.h"

namespace pstolvane1 {

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
  StandardRateReader standard_;
  ActualRateReader actual_;
  std::int64_t item_id_ = 0;
  std::optional<ItemRates> item_;
};

}  // namespace pstolvane1
