#include "vehicle/VehicleSearch.h"

#include <fmt/format.h>

#include "session/Launch.h"

namespace pstolvane1 {
namespace {

[[noreturn]] void RaiseUnknownType(std::string_view operation, std::int32_t report_type) {
  throw Error(ErrorNumber::kArgumentOutOfRange,
              fmt::format("{} has no search {}", operation, ReportTypeText(report_type)));
}

RecordsetPtr Search(ReportFrame& frame, VehicleSearch search,
                    const VehicleSearchArguments& arguments) {
  frame.module.Keep(arguments);
  frame.module.blnDetailed = false;
  return Launch(frame, arguments.reptype, False,
                {{.source = Source::Rs1,
                  .text = ComposeVehicleSearch(search, arguments),
                  .in_server_dialect = true}});
}

RecordsetPtr ReceiptsOfBill(ReportFrame& frame, const VehicleSearchArguments& arguments) {
  frame.module.Keep(arguments);
  return Launch(frame, arguments.reptype, True,
                {{.source = Source::Rs1,
                  .text = ComposeReceiptsOfBill(arguments.billbybill_id),
                  .in_server_dialect = true}});
}

}  // namespace

RecordsetPtr AutoSearch(ReportFrame& frame, const VehicleSearchArguments& arguments) {
  switch (arguments.reptype) {
    case rtAutoSearch:
      if (!arguments.strBuyerFilter.empty()) {
        return Search(frame, VehicleSearch::kBuyer, arguments);
      }
      return Search(
          frame, arguments.strBillFilter.empty() ? VehicleSearch::kVehicle : VehicleSearch::kBill,
          arguments);
    case rtAutoSearchReceipt:
      return Search(frame, VehicleSearch::kReceipts, arguments);
    case rtAutoSearchReceiptChild:
      return ReceiptsOfBill(frame, arguments);
    default:
      RaiseUnknownType("AutoSearch", arguments.reptype);
  }
}

RecordsetPtr RTOInsSearch(ReportFrame& frame, const VehicleSearchArguments& arguments) {
  if (arguments.reptype != rtRtoInsSearch) RaiseUnknownType("RTOInsSearch", arguments.reptype);
  return Search(frame, VehicleSearch::kInsurance, arguments);
}

RecordsetPtr AutoSearchServices(ReportFrame& frame, const VehicleSearchArguments& arguments) {
  switch (arguments.reptype) {
    case rtAutoSearch:
      return Search(frame,
                    arguments.strBillFilter.empty() ? VehicleSearch::kServiceVehicle
                                                    : VehicleSearch::kServiceBill,
                    arguments);
    case rtAutoSearchReceipt:
      return Search(frame, VehicleSearch::kServiceReceipts, arguments);
    case rtAutoSearchReceiptChild:
      return ReceiptsOfBill(frame, arguments);
    default:
      RaiseUnknownType("AutoSearchServices", arguments.reptype);
  }
}

RecordsetPtr TakeRs1(ReportFrame& frame) { return frame.Rowset(Source::Rs1); }

RecordsetPtr TakeDisconnectedRs1(ReportFrame& frame) {
  RecordsetPtr found = frame.Rowset(Source::Rs1);
  found->ActiveConnection(nullptr);
  return found;
}

}  // namespace pstolvane1
