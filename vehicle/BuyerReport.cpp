#include "vehicle/BuyerReport.h"

#include "session/Launch.h"

namespace pstolvane1 {

RecordsetPtr BuyerReport(ReportFrame& frame, const BuyerArguments& arguments,
                         const RecordsetPtr& rsItms, Boolean blnReport) {
  frame.module.Keep(arguments);
  frame.UseHostItems(rsItms);
  return Launch(frame, rtBuyerReport, blnReport,
                {{Source::rsReport, ComposeBuyers(arguments, frame.module.filter)}});
}

}  // namespace pstolvane1
