#include "vehicle/ServiceReportRegno.h"

#include "session/Launch.h"

namespace pstolvane1 {

RecordsetPtr ServiceReportRegno(ReportFrame& frame, const ServiceHistoryArguments& arguments,
                                const RecordsetPtr& rsItm, Boolean blnReport) {
  frame.module.Keep(arguments);
  frame.UseHostItems(rsItm);
  return Launch(frame, rtServiceReportRegNo, blnReport,
                {{Source::rsReport, ComposeServiceReportRegno(arguments)}});
}

}  // namespace pstolvane1
