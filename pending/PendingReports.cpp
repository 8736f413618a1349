#include "pending/PendingReports.h"

#include "pending/FreeQuantity.h"
#include "pending/FreeQuantity_Initial.h"
#include "pending/PendingDocuments.h"

namespace pstolvane1 {

std::span<const ReportRow> PendingReports() {
  static constexpr ReportRow kRows[] = {
      Row(rtFreeQuantity_Itemwise, rtFreeQuantity_Partywise, 1, &mFreeQuantity, kLinesCounted),
      Row(rtFreeQuantity_Itemwise_Initial, rtFreeQuantity_Partywise_Initial, 1,
          &mFreeQuantity_Initial),
      Row(rtPendingByItem, rtPendingByEmployee, 1, &mPending, kLinesCounted),
  };
  return kRows;
}

}  // namespace pstolvane1
