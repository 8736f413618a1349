#include "session/RowLoop.h"
#include "vehicle/FreeServiceReportDaily.h"
#include "vehicle/WorkshopBills.h"

namespace pstolvane1 {

RecordsetPtr mFreeServiceReportDaily(ReportFrame& frame) {
  const auto arguments = frame.module.Kept<FreeServiceListArguments>();
  const RecordsetPtr source = WorkshopBillsInOrder(frame, arguments.blnDetailed);
  ReportWriter writer(kWorkshopBillLayout, StyleOf(frame));
  WorkshopBills bills(frame, *source, writer, arguments.blnDetailed);
  ForEachSourceRow(
      frame, *source,
      [&](const Recordset::Row& row) {
        if (bills.IsNewBill(row)) bills.AddBill(row);
        bills.AddItem(row);
      },
      40);
  bills.AddRuleAndTotal(85);
  return writer.Finish();
}

}  // namespace pstolvane1
