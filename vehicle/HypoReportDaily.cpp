#include "vehicle/HypoReportDaily.h"

#include "session/Launch.h"

namespace pstolvane1 {

RecordsetPtr HypoReportDaily(ReportFrame& frame, const HypoListArguments& arguments,
                             Boolean blnReport) {
  frame.module.Keep(arguments);
  return Launch(frame, rtHypoReportDaily, blnReport,
                {{Source::rsReport, ComposeHypoReportDaily(arguments, frame.module.filter)}});
}

}  // namespace pstolvane1
