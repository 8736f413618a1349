#include "pending/PendingDocuments.h"

#include "session/Launch.h"

namespace pstolvane1 {
namespace {

constexpr ReportType TypeOf(PendingOf of) {
  switch (of) {
    case PendingOf::kItem:
      return rtPendingByItem;
    case PendingOf::kLedger:
      return rtPendingByLedger;
    case PendingOf::kEmployee:
      break;
  }
  return rtPendingByEmployee;
}

}  // namespace

RecordsetPtr Pending(ReportFrame& frame, const PendingArguments& arguments, Boolean blnReport) {
  frame.module.Keep(arguments);
  return Launch(frame, TypeOf(arguments.of), blnReport,
                {{Source::rsReport, ComposePending(arguments)}});
}

}  // namespace pstolvane1
