#include "analysis/ItemWise_DlyBkup.h"

#include "session/Launch.h"

namespace pstolvane1 {

RecordsetPtr ItemWise_DlyBkup(ReportFrame& frame, const ItemDaysArguments& arguments,
                              Boolean blnReport) {
  frame.module.Keep(arguments);
  return Launch(frame, rtItemwise_DlyBkup, blnReport,
                {{Source::rsReport, ComposeItemDays(arguments, frame.module.filter)}});
}

}  // namespace pstolvane1
