#include "vehicle/MechanicLabourReportDaily.h"

#include "movements/HostItems.h"
#include "session/Launch.h"

namespace pstolvane1 {

RecordsetPtr MechanicLabourReportDaily(ReportFrame& frame, std::int32_t reptype,
                                       const LabourListArguments& arguments,
                                       const RecordsetPtr& rsItm, Boolean blnReport) {
  frame.module.Keep(arguments);
  UseItems(frame, rsItm, arguments.blnDetailed);
  return Launch(
      frame, reptype, blnReport,
      {Source::rsReport, ComposeMechanicLabourReportDaily(arguments, frame.module.filter)},
      &mMechanicLabourReportDaily);
}

}  // namespace pstolvane1
