// The report types of the reports that value stock: they follow from the method and from what the
// stock is listed under.
#pragma once

#include <cstdint>
#include <optional>

#include "session/ReportType.h"
#include "session/enmValuationMethod.h"

namespace pstolvane1 {

// What stock is listed under. The report types of a method follow each other in this order.
enum class StockTree : std::int32_t { kItem, kCategory, kClass, kGodown };
enum class MonthlyTree : std::int32_t { kItem, kCategory, kClass, kGodown, kGodownItem };

// Godowns have no simple average: the weighted one stands in.
[[nodiscard]] constexpr enmValuationMethod MethodUnder(enmValuationMethod method, bool godowns) {
  return godowns && method == SimpleAvg ? AverageRate : method;
}

// The statement's report type; nothing for what is not a method, and for CurrentRate, which has no
// statement.
[[nodiscard]] constexpr std::optional<ReportType> StockReportType(enmValuationMethod method,
                                                                  StockTree tree) {
  const auto under = [tree](ReportType by_item) {
    return static_cast<ReportType>(by_item + static_cast<std::int32_t>(tree));
  };
  switch (MethodUnder(method, tree == StockTree::kGodown)) {
    case FifoRate:
    case LifoRate:
      return under(rtStockDetails_Itemwise_WithFifoLifo);
    case AverageRate:
      return under(rtStockDetails_Itemwise_WithAvg);
    case LastPurchaseRate:
      return under(rtStockDetails_Itemwise_WithLastPurchase);
    case LastSaleRate:
      return under(rtStockDetails_Itemwise_WithLastSale);
    case standardrate:
      return under(rtStockDetails_Itemwise_WithStandardCost);
    case StandardPrice:
      return under(rtStockDetails_Itemwise_WithStandardPrice);
    case SimpleAvg:
      return under(rtStockDetails_Itemwise_WithSimpleAvg);
    default:
      return std::nullopt;
  }
}

// The month ledger's report type; nothing as above.
[[nodiscard]] constexpr std::optional<ReportType> MonthlyReportType(enmValuationMethod method,
                                                                    MonthlyTree tree) {
  const auto under = [tree](ReportType by_item) {
    return static_cast<ReportType>(by_item + static_cast<std::int32_t>(tree));
  };
  switch (MethodUnder(method, tree >= MonthlyTree::kGodown)) {
    case FifoRate:
      return under(rtMonthly_Itemwise_WithFifo);
    case LifoRate:
      return under(rtMonthly_Itemwise_WithLifo);
    case AverageRate:
      return under(rtMonthly_Itemwise_WithAvg);
    case LastPurchaseRate:
      return under(rtMonthly_Itemwise_WithLastPurchase);
    case LastSaleRate:
      return under(rtMonthly_Itemwise_WithLastSale);
    case standardrate:
      return under(rtMonthly_Itemwise_WithStandardCost);
    case StandardPrice:
      return under(rtMonthly_Itemwise_WithStandardPrice);
    case SimpleAvg:
      return under(rtMonthly_Itemwise_WithSimpleAvg);
    default:
      return std::nullopt;
  }
}

}  // namespace pstolvane1
