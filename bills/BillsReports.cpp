#include "bills/BillsReports.h"

#include "bills/BillWise.h"
#include "bills/MultiplePriceList.h"

namespace pstolvane1 {

std::span<const ReportRow> BillsReports() {
  static constexpr ReportRow kRows[] = {
      Row(rtBillWiseReport, 0, &mBillWise),
      {.first = rtMultiplePriceList,
       .last = rtMultiplePriceList,
       .awaits = 0,
       .builder = &mMultiplePriceList,
       .delivery = Delivery::kAsBuilt,
       .opening = Opening::kFetchUnprepared},
  };
  return kRows;
}

}  // namespace pstolvane1
