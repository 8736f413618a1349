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
  const StockRates rates = HuntRates(method_, *item_, key);
  // What is shown is reckoned of singles, in which stock that is sold out comes to 0; what is
  // valued, of the quantities as they are read, which have more figures.
  const float opening = ToSingle(quantities.opening);
  const float closing =
      ToSingle(static_cast<double>(opening) + static_cast<double>(quantities.inwards.quantity) -
               static_cast<double>(quantities.outwards.quantity));
  return {.opening = {opening, ValueAt(quantities.opening, rates.opening)},
          .inwards = quantities.inwards,
          .outwards = quantities.outwards,
          .closing = {closing, ValueAt(quantities.closing, rates.closing)}};
}

}  // namespace pstolvane1
