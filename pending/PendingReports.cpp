#include "pending/PendingReports.h"

namespace pstolvane1 {

std::span<const ReportRow> PendingReports() {
  static constexpr ReportRow kRows[] = {
      Rows(rtFreeQuantity_Itemwise, rtFreeQuantity_Partywise, 1, nullptr, kLinesCounted),
      Rows(rtFreeQuantity_Itemwise_Initial, rtFreeQuantity_Partywise_Initial, 1),
      Rows(rtPendingByItem, rtPendingByEmployee, 1, nullptr, kLinesCounted),
  };
  return kRows;
}

}  // namespace pstolvane1
