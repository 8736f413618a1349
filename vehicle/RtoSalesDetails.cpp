#include "vehicle/RtoSalesDetails.h"

#include "session/Launch.h"

namespace pstolvane1 {

RecordsetPtr RtoSalesDetails(ReportFrame& frame, const TransportOfficeArguments& arguments,
                             const RecordsetPtr& recitem, Boolean blnReport) {
  frame.module.Keep(arguments);
  frame.UseHostItems(recitem);
  return Launch(frame, rtRtosalesdet, blnReport,
                {{Source::rsReport, ComposeRtoSalesDetails(arguments)}});
}

RecordsetPtr RtoSalesDetails1(ReportFrame& frame, const TransportOfficeArguments& arguments,
                              const RecordsetPtr& recitem, Boolean blnReport) {
  frame.module.Keep(arguments);
  frame.UseHostItems(recitem);
  return Launch(frame, rtRtosalesdet, blnReport,
                {{Source::rsReport, ComposeRtoSalesDetails1(arguments)}});
}

RecordsetPtr TakeReport(ReportFrame& frame) { return frame.Rowset(Source::rsReport); }

}  // namespace pstolvane1
