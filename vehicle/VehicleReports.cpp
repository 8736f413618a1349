#include "vehicle/VehicleReports.h"

#include "vehicle/BuyerReport.h"
#include "vehicle/RtoSalesDetails.h"
#include "vehicle/ServiceTax.h"
#include "vehicle/VehicleSearch.h"

namespace pstolvane1 {
namespace {

constexpr ReportRow LineCounting(ReportType first, ReportType last) {
  return {.first = first,
          .last = last,
          .awaits = 0,
          .any_count = kLinesCounted,
          .resets_record_no = true};
}

}  // namespace

std::span<const ReportRow> VehicleReports() {
  static constexpr ReportRow kRows[] = {
      Row(rtAutoSearch, 1, &TakeRs1, 1),
      Row(rtAutoSearchReceipt, 0, &TakeRs1, 3),
      {.first = rtAutoSearchReceiptChild,
       .last = rtAutoSearchReceiptChild,
       .awaits = 0,
       .builder = &TakeRs1,
       .delivery = Delivery::kNever},
      Row(rtClaimReport, 0),
      Row(rtBuyerReport, 0, &mBuyerReport),
      Row(rtServiceReportRegNo, 0),
      Row(rtRtosalesdet, 0, &TakeReport),
      Row(rtServiceReport, 0, &mServiceTax),
      Row(rtMechanicLabourReport, 2),
      Row(rtFreeServiceReport, 0),
      Row(rtRtoInsSearch, 0, &TakeDisconnectedRs1),
      LineCounting(rtFreeServiceReportDaily, rtHypoReportDaily),
  };
  return kRows;
}

}  // namespace pstolvane1
