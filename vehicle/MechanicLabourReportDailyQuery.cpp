#include <fmt/format.h>

#include "session/QueryText.h"
#include "vehicle/Bills.h"
#include "vehicle/Labour.h"
#include "vehicle/MechanicLabourReportDaily.h"
#include "vehicle/WorkshopBills.h"

namespace pstolvane1 {
namespace {

constexpr std::string_view kVehicleName =
    ", (Select i.itemname From items1 as i Where i.item_id = terms1.vehicle_id) as vehiclename";

}  // namespace

std::string ComposeMechanicLabourReportDaily(const LabourListArguments& arguments,
                                             const DocumentFilter& filter) {
  const bool by_vehicle = arguments.btTypeOfReport == kByVehicle;
  QueryFilter bills = FilterOfLabour(filter, arguments.btTypeOfReport, arguments.Mechanic_id);
  std::string labour(kLabourOfBill);
  if (arguments.Item_id != 0 && by_vehicle) {
    bills.Add(fmt::format("terms1.vehicle_id = {}", arguments.Item_id));
  } else if (arguments.Item_id != 0) {
    bills.Add(
        fmt::format("desr1.desr_id in (Select desrdetails1.desr_id From desrdetails1 "
                    "Where desrdetails1.item_id = {})",
                    arguments.Item_id));
    labour = fmt::format(
        "(Select sum(desrdetails1.qtydespout * desrdetails1.price) From desrdetails1 "
        "Where desrdetails1.desr_id = desr1.desr_id and desrdetails1.item_id = {})",
        arguments.Item_id);
  }
  return ComposeWorkshopBills(
      {.sngScale = arguments.sngScale,
       .detailed = arguments.blnDetailed,
       .columns = fmt::format(", {}/{} as labourbill{}", labour, SingleText(arguments.sngScale),
                              by_vehicle ? kVehicleName : ""),
       .conditions = bills.Conditions(),
       .from = arguments.dtFromDate,
       .to = arguments.dtToDate});
}

}  // namespace pstolvane1
