#include "vehicle/MechanicLabourReport.h"

#include "session/Launch.h"

namespace pstolvane1 {

RecordsetPtr MechanicLabourReport(ReportFrame& frame, LabourArguments arguments,
                                  Boolean blnReport) {
  arguments.blnDetailed = arguments.blnDetailed || arguments.Mechanic_id != 0;
  frame.module.Keep(arguments);
  return Launch(frame, rtMechanicLabourReport, blnReport,
                {{Source::rsReport, ComposeMechanicLabourReport(arguments, frame.module.filter)}});
}

}  // namespace pstolvane1
