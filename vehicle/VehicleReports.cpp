#include "vehicle/VehicleReports.h"

#include "vehicle/BuyerReport.h"
#include "vehicle/ClaimReport.h"
#include "vehicle/FreeServiceReport.h"
#include "vehicle/FreeServiceReportDaily.h"
#include "vehicle/HypoReport.h"
#include "vehicle/HypoReportDaily.h"
#include "vehicle/MechanicLabourReport.h"
#include "vehicle/MechanicLabourReportDaily.h"
#include "vehicle/RtoSalesDetails.h"
#include "vehicle/ServiceReportRegno.h"
#include "vehicle/ServiceTax.h"
#include "vehicle/VehicleSearch.h"

namespace pstolvane1 {
namespace {

constexpr ReportRow LineCounting(ReportType type, RowBuilder builder,
                                 std::uint8_t preloaded_fetches = 0) {
  return {.first = type,
          .last = type,
          .awaits = 0,
          .builder = builder,
          .any_count = kLinesCounted,
          .resets_record_no = true,
          .preloaded_fetches = preloaded_fetches};
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
      Row(rtClaimReport, 0, &mClaimReport),
      Row(rtBuyerReport, 0, &mBuyerReport),
      Row(rtServiceReportRegNo, 0, &mServiceReportRegno),
      Row(rtRtosalesdet, 0, &TakeReport),
      Row(rtServiceReport, 0, &mServiceTax),
      {.first = rtMechanicLabourReport,
       .last = rtMechanicLabourReport,
       .awaits = 2,
       .builder = &mMechanicLabourReport,
       .preloaded_fetches = 1},
      Row(rtFreeServiceReport, 0, &mFreeServiceReport),
      Row(rtRtoInsSearch, 0, &TakeDisconnectedRs1),
      LineCounting(rtFreeServiceReportDaily, &mFreeServiceReportDaily),
      LineCounting(rtMechanicLabourReportDaily, &mMechanicLabourReportDaily),
      LineCounting(rtHypoReport, &mHypoReport, 1),
      LineCounting(rtHypoReportDaily, &mHypoReportDaily),
  };
  return kRows;
}

}  // namespace pstolvane1
