#include "bills/BillWise.h"

#include "session/Launch.h"

namespace pstolvane1 {
namespace {

void Keep(ReportFrame& frame, BillWiseArguments& arguments, const RecordsetPtr& recitem,
          RowBuilder builder) {
  arguments.has_items = recitem != nullptr;
  arguments.builder = builder;
  frame.module.Keep(arguments);
  frame.UseHostItems(recitem);
}

}  // namespace

RecordsetPtr BillWiseQuery(ReportFrame& frame, BillWiseArguments arguments,
                           const RecordsetPtr& recitem, Boolean blnReport) {
  Keep(frame, arguments, recitem, &mBillWiseQuery);
  return Launch(frame, rtBillWiseReport, blnReport,
                {{Source::rsReport, ComposeBillWiseQuery(arguments, frame.module.filter)}});
}

RecordsetPtr BillWiseQuery1(ReportFrame& frame, BillWiseArguments arguments,
                            const RecordsetPtr& recitem, Boolean blnReport) {
  // In the background the other builder runs; that is meant.
  Keep(frame, arguments, recitem, blnReport.IsTrue() ? &mBillWiseQuery1 : &mBillWiseQuery);
  return Launch(frame, rtBillWiseReport, blnReport,
                {{Source::rsReport, ComposeBillWiseQuery1(arguments)}});
}

RecordsetPtr mBillWise(ReportFrame& frame) {
  return frame.module.Kept<BillWiseArguments>().builder(frame);
}

}  // namespace pstolvane1
