#include "automation/SortedCall.h"

#include "session/ReportType.h"

namespace pstolvane1::automation {

SortedReport SortedAs(const Operation& operation, const BoundValues& values) {
  SortedReport report{.operation = operation.name};
  bool one = false;
  const std::vector<Slot> slots = SlotsOf(operation);
  for (std::size_t at = 0; at < slots.size(); ++at) {
    const Argument& argument = *slots[at].argument;
    if (argument.name == operation.decided_by) report.asked = values.at(at).ToInt32();
    if (argument.name == "blnDetailed" && argument.IsRead()) {
      report.detailed = values.at(at).ToBoolean() == True;
    }
    if (argument.one_in_detail && values.at(at).ToInt32() > 0) one = true;
  }
  // Related items are told in detail by blnDetailed alone.
  if (report.asked != rtMovement_SalesReturns_ItemRelationAnalysis && one) report.detailed = true;
  return report;
}

}  // namespace pstolvane1::automation
