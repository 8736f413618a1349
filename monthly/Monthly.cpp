#include "monthly/Monthly.h"

#include "monthly/MonthlyAverage.h"
#include "monthly/MonthlyHuntedRate.h"
#include "monthly/MonthlyLayers.h"
#include "monthly/MonthlySimpleAverage.h"
#include "movements/GroupQuery.h"
#include "movements/GroupRows.h"

namespace pstolvane1 {
namespace {

SourceQueries QueriesOf(const modStolvane1& module, const MonthlyArguments& arguments) {
  switch (arguments.ValuationMethod) {
    case FifoRate:
    case LifoRate:
      return Monthly_Layers(module, arguments);
    case AverageRate:
      return Monthly_Avg(module, arguments);
    case SimpleAvg:
      return Monthly_SimpleAvg(module, arguments);
    default:
      return Monthly_HuntedRate(module, arguments);
  }
}

StockTree GroupsOf(MonthlyTree tree) {
  switch (tree) {
    case MonthlyTree::kCategory:
      return StockTree::kCategory;
    case MonthlyTree::kClass:
      return StockTree::kClass;
    default:
      return StockTree::kGodown;
  }
}

// Under every method, also under those that take the group alone all the same.
void RefuseCircles(ReportFrame& frame, const MonthlyArguments& arguments) {
  if (IsOfOneItem(arguments) || arguments.blnOnlyItems) return;
  const RecordsetPtr groups = OpenPlain(frame, ComposeGroupQuery(GroupsOf(arguments.tree)));
  // The texts of the ledger read -1 as 1.
  const std::int32_t named = arguments.lngAny_Id1 == -1 ? 1 : arguments.lngAny_Id1;
  (void)ListGroups(ReadGroups(*groups), named, false);
}

}  // namespace

RecordsetPtr Monthly(ReportFrame& frame, MonthlyArguments arguments, Boolean blnReport) {
  const auto report_type = MonthlyReportType(arguments.ValuationMethod, arguments.tree);
  if (!report_type) return nullptr;
  arguments.ValuationMethod =
      MethodUnder(arguments.ValuationMethod, arguments.tree >= MonthlyTree::kGodown);
  RefuseCircles(frame, arguments);
  frame.module.Keep(arguments);
  return Launch(frame, *report_type, blnReport, QueriesOf(frame.module, arguments));
}

}  // namespace pstolvane1
