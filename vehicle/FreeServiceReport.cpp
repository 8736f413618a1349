#include "vehicle/FreeServiceReport.h"

#include "session/Launch.h"

namespace pstolvane1 {

RecordsetPtr FreeServiceReport(ReportFrame& frame, FreeServiceArguments arguments,
                               Boolean blnReport) {
  arguments.blnDetailed = arguments.blnDetailed || arguments.OneCategory();
  frame.module.Keep(arguments);
  return Launch(frame, rtFreeServiceReport, blnReport,
                {{Source::rsReport, ComposeFreeServiceReport(arguments, frame.module.filter)}});
}

}  // namespace pstolvane1
