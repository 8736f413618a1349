#include "pending/FreeQuantity_Initial.h"

#include "session/Launch.h"

namespace pstolvane1 {

RecordsetPtr FreeQuantity_Initial(ReportFrame& frame, const FreeSummaryArguments& arguments,
                                  Boolean blnReport) {
  frame.module.Keep(arguments);
  return Launch(frame,
                arguments.of == FreeQuantityOf::kItem ? rtFreeQuantity_Itemwise_Initial
                                                      : rtFreeQuantity_Partywise_Initial,
                blnReport, {{Source::rsReport, ComposeFreeQuantity_Initial(arguments)}});
}

}  // namespace pstolvane1
