#include "vehicle/ClaimReport.h"

#include "session/Launch.h"

namespace pstolvane1 {

RecordsetPtr ClaimReport(ReportFrame& frame, const ClaimArguments& arguments,
                         const RecordsetPtr& recitem, Boolean blnReport) {
  frame.module.Keep(arguments);
  frame.UseHostItems(recitem);
  return Launch(frame, rtClaimReport, blnReport,
                {{Source::rsReport, ComposeClaimReport(arguments, frame.module.filter)}});
}

}  // namespace pstolvane1
