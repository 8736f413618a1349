#include "stock/StockReports.h"

#include "stock/Average.h"
#include "stock/FifoLifo.h"
#include "stock/HuntedRate.h"
#include "stock/SimpleAverage.h"

namespace pstolvane1 {
namespace {

// The yearly types are public, but no operation asks for them: their fetches are counted and
// nothing is delivered.
constexpr ReportRow Yearly(ReportType first, ReportType last) {
  return {.first = first, .last = last, .awaits = 3, .delivery = Delivery::kNothing};
}

}  // namespace

std::span<const ReportRow> StockReports() {
  static constexpr ReportRow kRows[] = {
      Row(rtStockDetails_Itemwise_WithAvg, 2, &mStock_Avg),
      Row(rtStockDetails_Categorywise_WithAvg, rtStockDetails_Godownwise_WithAvg, 3,
          &mStockGroup_Avg),
      Row(rtStockDetails_Itemwise_WithFifoLifo, 2, &mStock_FifoLifo),
      Row(rtStockDetails_Categorywise_WithFifoLifo, rtStockDetails_Godownwise_WithFifoLifo, 2,
          &mStockGroup_FifoLifo),
      Row(rtStockDetails_Itemwise_WithLastPurchase, 3, mStock_LastPurchase),
      Row(rtStockDetails_Categorywise_WithLastPurchase, rtStockDetails_Godownwise_WithLastPurchase,
          4, mStockGroup_LastPurchase),
      Row(rtStockDetails_Itemwise_WithLastSale, 3, mStock_LastSale),
      Row(rtStockDetails_Categorywise_WithLastSale, rtStockDetails_Godownwise_WithLastSale, 4,
          mStockGroup_LastSale),
      Yearly(rtStockDetails_Categorywise_WithAvg_Yearly, rtStockDetails_Godownwise_WithAvg_Yearly),
      Yearly(rtStockDetails_Categorywise_WithLastPurchase_Yearly,
             rtStockDetails_Godownwise_WithLastPurchase_Yearly),
      Yearly(rtStockDetails_Categorywise_WithLastSale_Yearly,
             rtStockDetails_Godownwise_WithLastSale_Yearly),
      Row(rtStockDetails_Itemwise_WithStandardCost, 3, mStock_StdCost),
      Row(rtStockDetails_Categorywise_WithStandardCost, rtStockDetails_Godownwise_WithStandardCost,
          4, mStockGroup_StdCost),
      Row(rtStockDetails_Itemwise_WithStandardPrice, 3, mStock_StdPrice),
      Row(rtStockDetails_Categorywise_WithStandardPrice,
          rtStockDetails_Godownwise_WithStandardPrice, 4, mStockGroup_StdPrice),
      Row(rtStockDetails_Itemwise_WithSimpleAvg, 2, &mStock_SimpleAvg),
      Row(rtStockDetails_Categorywise_WithSimpleAvg, rtStockDetails_Classwise_WithSimpleAvg, 3,
          &mStockGroup_SimpleAvg),
  };
  return kRows;
}

}  // namespace pstolvane1
