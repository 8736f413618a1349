#include "monthly/MonthlyReports.h"

#include "monthly/MonthlyAverage.h"
#include "monthly/MonthlyHuntedRate.h"
#include "monthly/MonthlyLayers.h"
#include "monthly/MonthlySimpleAverage.h"

namespace pstolvane1 {

std::span<const ReportRow> MonthlyReports() {
  static constexpr ReportRow kRows[] = {
      Row(rtMonthly_Itemwise_WithAvg, rtMonthly_GodownItemwise_WithAvg, 4, &mMonthly_Avg),
      Row(rtMonthly_Itemwise_WithFifo, rtMonthly_GodownItemwise_WithFifo, 1, mMonthly_Fifo),
      Row(rtMonthly_Itemwise_WithLifo, rtMonthly_GodownItemwise_WithLifo, 1, mMonthly_Lifo),
      Row(rtMonthly_Itemwise_WithLastPurchase, rtMonthly_GodownItemwise_WithLastPurchase, 4,
          mMonthly_LastPurchase),
      Row(rtMonthly_Itemwise_WithLastSale, rtMonthly_GodownItemwise_WithLastSale, 4,
          mMonthly_LastSale),
      Row(rtMonthly_Itemwise_WithStandardCost, rtMonthly_GodownItemwise_WithStandardCost, 4,
          mMonthly_StandardCost),
      Row(rtMonthly_Itemwise_WithStandardPrice, rtMonthly_GodownItemwise_WithStandardPrice, 4,
          mMonthly_StandardPrice),
      Row(rtMonthly_Itemwise_WithSimpleAvg, 2, &mMonthly_SimpleAvg),
      Row(rtMonthly_Categorywise_WithSimpleAvg, rtMonthly_Classwise_WithSimpleAvg, 2,
          &mMonthly_SimpleAvgGrouped),
  };
  return kRows;
}

}  // namespace pstolvane1
