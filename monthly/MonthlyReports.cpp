#include "monthly/MonthlyReports.h"

namespace pstolvane1 {

std::span<const ReportRow> MonthlyReports() {
  static constexpr ReportRow kRows[] = {
      Rows(rtMonthly_Itemwise_WithAvg, rtMonthly_GodownItemwise_WithAvg, 4),
      Rows(rtMonthly_Itemwise_WithFifo, rtMonthly_GodownItemwise_WithFifo, 1),
      Rows(rtMonthly_Itemwise_WithLifo, rtMonthly_GodownItemwise_WithLifo, 1),
      Rows(rtMonthly_Itemwise_WithLastPurchase, rtMonthly_GodownItemwise_WithLastPurchase, 4),
      Rows(rtMonthly_Itemwise_WithLastSale, rtMonthly_GodownItemwise_WithLastSale, 4),
      Rows(rtMonthly_Itemwise_WithStandardCost, rtMonthly_GodownItemwise_WithStandardCost, 4),
      Rows(rtMonthly_Itemwise_WithStandardPrice, rtMonthly_GodownItemwise_WithStandardPrice, 4),
      Row(rtMonthly_Itemwise_WithSimpleAvg, 2),
      Rows(rtMonthly_Categorywise_WithSimpleAvg, rtMonthly_Classwise_WithSimpleAvg, 2),
  };
  return kRows;
}

}  // namespace pstolvane1
