#include <fmt/format.h>

#include "vehicle/Bills.h"
#include "vehicle/FreeService.h"
#include "vehicle/FreeServiceReportDaily.h"
#include "vehicle/WorkshopBills.h"

namespace pstolvane1 {

std::string ComposeFreeServiceReportDaily(const FreeServiceListArguments& arguments,
                                          const DocumentFilter& filter) {
  return ComposeWorkshopBills(
      {.sngScale = arguments.sngScale,
       .detailed = arguments.blnDetailed,
       .columns = {},
       .conditions = FilterOfFreeServices(filter)
                         .Add(fmt::format("terms1.vehicle_id = {}", arguments.Vehicle_id))
                         .Conditions(),
       .from = arguments.dtFromDate,
       .to = arguments.dtToDate});
}

}  // namespace pstolvane1
