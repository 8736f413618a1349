#include "monthly/Monthly.h"

#include "monthly/MonthlyAverage.h"
#include "monthly/MonthlyHuntedRate.h"
#include "monthly/MonthlyLayers.h"
#include "monthly/MonthlySimpleAverage.h"

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

}  // namespace

RecordsetPtr Monthly(ReportFrame& frame, MonthlyArguments arguments, Boolean blnReport) {
  const auto report_type = MonthlyReportType(arguments.ValuationMethod, arguments.tree);
  if (!report_type) return nullptr;
  arguments.ValuationMethod =
      MethodUnder(arguments.ValuationMethod, arguments.tree >= MonthlyTree::kGodown);
  frame.module.Keep(arguments);
  return Launch(frame, *report_type, blnReport, QueriesOf(frame.module, arguments));
}

}  // namespace pstolvane1
