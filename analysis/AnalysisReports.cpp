#include "analysis/AnalysisReports.h"

#include "analysis/CategoryWise_Initial.h"
#include "analysis/Colorwise.h"
#include "analysis/Commission.h"
#include "analysis/DailyAnalysis.h"
#include "analysis/Doc_Initial.h"
#include "analysis/ItemWise_DlyBkup.h"
#include "analysis/LedgersByCode.h"
#include "analysis/MovementAnalysis.h"

namespace pstolvane1 {
namespace {

// These block until their rows are there, in both modes.
constexpr ReportRow Analysis(ReportType first, ReportType last, RowBuilder builder) {
  return {.first = first,
          .last = last,
          .awaits = 1,
          .builder = builder,
          .opening = Opening::kOpenAndSignal};
}

// The relations of the items are opened beside the movements.
constexpr ReportRow RelatedItems() {
  ReportRow row = Analysis(rtMovement_SalesReturns_ItemRelationAnalysis,
                           rtMovement_SalesReturns_ItemRelationAnalysis, &mItemRelation_Analysis);
  row.unawaited_queries = 1;
  return row;
}

// No line of it is numbered: the count that it is delivered with is 0.
constexpr ReportRow ItemDays() {
  ReportRow row = Row(rtItemwise_DlyBkup, 1, &mItemwise_DlyBreakup, kLinesCounted);
  row.resets_record_no = true;
  return row;
}

}  // namespace

std::span<const ReportRow> AnalysisReports() {
  static constexpr ReportRow kRows[] = {
      Row(rtDoc_Initial, 1, &mDoc_Initial),
      Row(rtLedgersByCode, 1, &mLedgersByCode),
      // Sales and purchases with their returns: in summary, and day by day.
      Analysis(rtMovement_SalesReturns_LedgerAnalysis, rtMovement_SalesReturns_ItemAnalysis,
               &mCustomerItemwise_Analysis),
      Analysis(rtMovement_SalesReturns_GroupAnalysis, rtMovement_SalesReturns_ClassAnalysis,
               &mCustomerItemwise_Analysis),
      Analysis(rtMovement_SalesReturns_AreaLedgerAnalysis,
               rtMovement_SalesReturns_AreaLedgerAnalysis, &mCustomerItemwise_Analysis),
      RelatedItems(),
      Analysis(rtMovement_PurchaseReturns_LedgerAnalysis, rtMovement_PurchaseReturns_ItemAnalysis,
               &mMovement_PurchaseReturns_Analysis),
      Analysis(rtMovement_PurchaseReturns_GroupAnalysis, rtMovement_PurchaseReturns_ClassAnalysis,
               &mMovement_PurchaseReturns_Analysis),
      Analysis(rtMovement_PurchaseReturns_AreaLedgerAnalysis,
               rtMovement_PurchaseReturns_AreaLedgerAnalysis, &mMovement_PurchaseReturns_Analysis),
      Analysis(rtMovement_SalesReturns_LedgerDailyAnalysis,
               rtMovement_SalesReturns_ItemDailyAnalysis, &mCustomerItemDaily_Analysis),
      Analysis(rtMovement_SalesReturns_GroupDailyAnalysis,
               rtMovement_SalesReturns_GroupDailyAnalysis, &mCustomerItemDaily_Analysis),
      Analysis(rtMovement_PurchaseReturns_LedgerDailyAnalysis,
               rtMovement_PurchaseReturns_ItemDailyAnalysis,
               &mMovement_PurchaseReturns_DailyAnalysis),
      Analysis(rtMovement_PurchaseReturns_GroupDailyAnalysis,
               rtMovement_PurchaseReturns_GroupDailyAnalysis,
               &mMovement_PurchaseReturns_DailyAnalysis),
      Row(rtCommission_Initial_Employeewise, rtCommission_Initial_Itemwise, 1,
          &mCommission_Initial),
      Row(rtCommission_Daily, 1, &mCommission_Daily),
      Row(rtColorwise_Initial, 1, &mColorwise_Initial),
      Row(rtColorwise_Monthly, 2, &mColorwise_Monthly),
      Row(rtColorwise_Daily, 2, &mColorwise_Daily),
      Analysis(rtCategorywise_Initial, rtCategorywise_Initial, &mCategoryWise_Initial),
      ItemDays(),
  };
  return kRows;
}

}  // namespace pstolvane1
