#include "pending/FreeQuantity.h"

#include "session/Launch.h"

namespace pstolvane1 {

RecordsetPtr FreeQuantity(ReportFrame& frame, const FreeQuantityArguments& arguments,
                          Boolean blnReport) {
  frame.module.Keep(arguments);
  return Launch(
      frame,
      arguments.of == FreeQuantityOf::kItem ? rtFreeQuantity_Itemwise : rtFreeQuantity_Partywise,
      blnReport, {{Source::rsReport, ComposeFreeQuantity(arguments)}});
}

}  // namespace pstolvane1
