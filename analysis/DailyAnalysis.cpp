#include "analysis/DailyAnalysis.h"

#include <algorithm>
#include <iterator>

#include "session/Launch.h"

namespace pstolvane1 {
namespace {

constexpr std::string_view kByItem = "items1.itemname,aaa.item_id,aaa.date,aaa.ledger_id";
constexpr std::string_view kByParty =
    "ledgernames1.ledgername,aaa.ledger_id,aaa.date,items1.itemname,aaa.item_id";

constexpr DailyGrouping kGroupings[] = {
    {.asked = rtMovement_LedgerDailyAnalysis,
     .sales = rtMovement_SalesReturns_LedgerDailyAnalysis,
     .purchases = rtMovement_PurchaseReturns_LedgerDailyAnalysis,
     .by_item = true,
     .one = " and ledgernames1.ledger_Id = ",
     .second = " and items1.item_Id =  ",
     .order = kByItem},
    {.asked = rtMovement_ItemDailyAnalysis,
     .sales = rtMovement_SalesReturns_ItemDailyAnalysis,
     .purchases = rtMovement_PurchaseReturns_ItemDailyAnalysis,
     .by_item = false,
     .one = " and items1.item_id = ",
     .second = " and ledgernames1.ledger_id =  ",
     .order = kByParty},
    {.asked = rtMovement_GroupDailyAnalysis,
     .sales = rtMovement_SalesReturns_GroupDailyAnalysis,
     .purchases = rtMovement_PurchaseReturns_GroupDailyAnalysis,
     .by_item = false,
     .one = " and ledgernames1.subgroup_id = ",
     .second = " and items1.item_Id =  ",
     .order = kByParty},
};

ReportType StoredType(MovementSide side, const DailyGrouping& grouping) {
  return side == MovementSide::kSales ? grouping.sales : grouping.purchases;
}

}  // namespace

const DailyGrouping* FindDailyGrouping(MovementSide side, std::int32_t report_type) {
  const auto* found = std::ranges::find_if(kGroupings, [=](const DailyGrouping& one) {
    return report_type == one.asked || report_type == StoredType(side, one);
  });
  return found == std::end(kGroupings) ? nullptr : found;
}

RecordsetPtr DailyAnalysis(ReportFrame& frame, DailyArguments arguments, ReportType& reptype,
                           Boolean blnReport) {
  const DailyGrouping* const grouping = FindDailyGrouping(arguments.side, reptype);
  if (grouping) reptype = StoredType(arguments.side, *grouping);
  arguments.reptype = reptype;
  frame.module.Keep(arguments);
  if (!grouping) {
    frame.lngReportType = reptype;
    return OpenPlain(frame, ComposeDays(arguments, frame.module.filter));
  }
  return Launch(frame, reptype, blnReport,
                {{Source::rsReport, ComposeDays(arguments, frame.module.filter)}});
}

}  // namespace pstolvane1
