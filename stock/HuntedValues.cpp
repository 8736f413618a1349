#include "stock/HuntedValues.h"

namespace pstolvane1 {

HuntedValues::HuntedValues(const ReportFrame& frame)
    : method_(frame.module.ValuationMethod),
      period_{DayOf(frame.module.dtFromDate), DayOf(frame.module.dtToDate)},
      standard_(*frame.Rowset(Source::Rs1)),
      actual_(*frame.Rowset(Source::Rs2)) {}

StockFigures HuntedValues::Value(const KeyQuantities& quantities, std::int64_t item_id,
                                 const GodownBatch& key) {
  if (!item_ || item_id != item_id_) {
    item_.emplace(actual_.Of(item_id), standard_.Of(item_id), period_);
    item_id_ = item_id;
  }
  return ValueAtRates(quantities, HuntRates(method_, *item_, key));
}

}  // namespace pstolvane1
