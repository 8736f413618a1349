#include "analysis/Commission.h"

#include "session/Launch.h"

namespace pstolvane1 {

RecordsetPtr Commission_Initial(ReportFrame& frame, CommissionArguments arguments,
                                Boolean blnReport, const RecordsetPtr& recitem) {
  if (arguments.lngId1 != kAllCommission) arguments.blnDetailed = true;
  frame.module.Keep(arguments);
  frame.UseHostItems(recitem);
  const std::string text = ComposeCommission(arguments, frame.module.filter);
  if (arguments.reptype != rtCommission_Initial_Employeewise &&
      arguments.reptype != rtCommission_Initial_Itemwise) {
    frame.lngReportType = arguments.reptype;
    return OpenPlain(frame, text);
  }
  return Launch(frame, arguments.reptype, blnReport, {{Source::rsReport, text}});
}

RecordsetPtr Commission_Daily(ReportFrame& frame, const CommissionDailyArguments& arguments,
                              Boolean blnReport) {
  frame.module.Keep(arguments);
  return Launch(frame, rtCommission_Daily, blnReport,
                {{Source::rsReport, ComposeCommissionDaily(arguments, frame.module.filter)}});
}

}  // namespace pstolvane1
