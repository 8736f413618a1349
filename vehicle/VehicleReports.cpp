#include "vehicle/VehicleReports.h"

#include "session/ReportFrame.h"

namespace pstolvane1 {
namespace {

RecordsetPtr TakeRs1(ReportFrame& frame) { return frame.Rowset(Source::Rs1); }

RecordsetPtr TakeReport(ReportFrame& frame) { return frame.Rowset(Source::rsReport); }

RecordsetPtr TakeDisconnectedRs1(ReportFrame& frame) {
  RecordsetPtr found = frame.Rowset(Source::Rs1);
  found->ActiveConnection(nullptr);
  return found;
}

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
      Row(rtClaimReport, 0),
      Row(rtBuyerReport, 0),
      Row(rtServiceReportRegNo, 0),
      Row(rtRtosalesdet, 0, &TakeReport),
      Row(rtServiceReport, 0),
      Row(rtMechanicLabourReport, 2),
      Row(rtFreeServiceReport, 0),
      Row(rtRtoInsSearch, 0, &TakeDisconnectedRs1),
      LineCounting(rtFreeServiceReportDaily, rtHypoReportDaily),
  };
  return kRows;
}

}  // namespace pstolvane1
