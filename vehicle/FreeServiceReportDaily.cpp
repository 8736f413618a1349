#include "vehicle/FreeServiceReportDaily.h"

#include "movements/HostItems.h"
#include "session/Launch.h"

namespace pstolvane1 {

RecordsetPtr FreeServiceReportDaily(ReportFrame& frame, std::int32_t reptype,
                                    const FreeServiceListArguments& arguments,
                                    const RecordsetPtr& rsItms, Boolean blnReport) {
  frame.module.Keep(arguments);
  UseItems(frame, rsItms, arguments.blnDetailed);
  return Launch(frame, reptype, blnReport,
                {Source::rsReport, ComposeFreeServiceReportDaily(arguments, frame.module.filter)},
                &mFreeServiceReportDaily);
}

}  // namespace pstolvane1
