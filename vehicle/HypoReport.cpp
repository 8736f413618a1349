#include "vehicle/HypoReport.h"

#include "session/Launch.h"

namespace pstolvane1 {

RecordsetPtr HypoReport(ReportFrame& frame, HypoArguments arguments, Boolean blnReport) {
  arguments.blnDetailed = arguments.blnDetailed || arguments.Hypo_id != 0;
  frame.module.Keep(arguments);
  return Launch(frame, rtHypoReport, blnReport,
                {{Source::rsReport, ComposeHypoReport(arguments, frame.module.filter)}});
}

}  // namespace pstolvane1
