#include "stock/StockReports.h"

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
      Row(rtStockDetails_Itemwise_WithAvg, 2),
      Rows(rtStockDetails_Categorywise_WithAvg, rtStockDetails_Godownwise_WithAvg, 3),
      Row(rtStockDetails_Itemwise_WithFifoLifo, 2),
      Rows(rtStockDetails_Categorywise_WithFifoLifo, rtStockDetails_Godownwise_WithFifoLifo, 2),
      Row(rtStockDetails_Itemwise_WithLastPurchase, 3),
      Rows(rtStockDetails_Categorywise_WithLastPurchase, rtStockDetails_Godownwise_WithLastPurchase,
           4),
      Row(rtStockDetails_Itemwise_WithLastSale, 3),
      Rows(rtStockDetails_Categorywise_WithLastSale, rtStockDetails_Godownwise_WithLastSale, 4),
      Yearly(rtStockDetails_Categorywise_WithAvg_Yearly, rtStockDetails_Godownwise_WithAvg_Yearly),
      Yearly(rtStockDetails_Categorywise_WithLastPurchase_Yearly,
             rtStockDetails_Godownwise_WithLastPurchase_Yearly),
      Yearly(rtStockDetails_Categorywise_WithLastSale_Yearly,
             rtStockDetails_Godownwise_WithLastSale_Yearly),
      Row(rtStockDetails_Itemwise_WithStandardCost, 3),
      Rows(rtStockDetails_Categorywise_WithStandardCost, rtStockDetails_Godownwise_WithStandardCost,
           4),
      Row(rtStockDetails_Itemwise_WithStandardPrice, 3),
      Rows(rtStockDetails_Categorywise_WithStandardPrice,
           rtStockDetails_Godownwise_WithStandardPrice, 4),
      Row(rtStockDetails_Itemwise_WithSimpleAvg, 2),
      Rows(rtStockDetails_Categorywise_WithSimpleAvg, rtStockDetails_Classwise_WithSimpleAvg, 3),
  };
  return kRows;
}

}  // namespace pstolvane1
