#include "analysis/AnalysisReports.h"

#include "analysis/Doc_Initial.h"
#include "analysis/LedgersByCode.h"

namespace pstolvane1 {

std::span<const ReportRow> AnalysisReports() {
  static constexpr ReportRow kRows[] = {
      Row(rtDoc_Initial, 1, &mDoc_Initial),
      Row(rtLedgersByCode, 1, &mLedgersByCode),
      // Sales and purchases with their returns: in summary, and day by day.
      Rows(rtMovement_SalesReturns_LedgerAnalysis, rtMovement_SalesReturns_ItemAnalysis, 1),
      Rows(rtMovement_SalesReturns_LedgerDailyAnalysis, rtMovement_SalesReturns_ItemDailyAnalysis,
           1),
      Rows(rtMovement_PurchaseReturns_LedgerAnalysis, rtMovement_PurchaseReturns_ItemAnalysis, 1),
      Rows(rtMovement_PurchaseReturns_LedgerDailyAnalysis,
           rtMovement_PurchaseReturns_ItemDailyAnalysis, 1),
      Rows(rtMovement_SalesReturns_GroupAnalysis, rtMovement_SalesReturns_ClassAnalysis, 1),
      Rows(rtMovement_PurchaseReturns_GroupAnalysis, rtMovement_PurchaseReturns_ClassAnalysis, 1),
      Row(rtMovement_SalesReturns_GroupDailyAnalysis, 1),
      Row(rtMovement_PurchaseReturns_GroupDailyAnalysis, 1),
      Row(rtMovement_SalesReturns_ItemRelationAnalysis, 1),
      Row(rtMovement_PurchaseReturns_AreaLedgerAnalysis, 1),
      Row(rtMovement_SalesReturns_AreaLedgerAnalysis, 1),
      Rows(rtCommission_Initial_Employeewise, rtCommission_Initial_Itemwise, 1),
      Row(rtCommission_Daily, 1),
      Row(rtColorwise_Initial, 1),
      Row(rtColorwise_Monthly, 2),
      Row(rtColorwise_Daily, 2),
      Row(rtCategorywise_Initial, 1),
      Row(rtItemwise_DlyBkup, 1, nullptr, kLinesCounted),
  };
  return kRows;
}

}  // namespace pstolvane1
