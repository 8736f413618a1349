#include "vehicle/Labour.h"

#include <fmt/format.h>

#include "vehicle/Bills.h"

namespace pstolvane1 {

QueryFilter FilterOfLabour(const DocumentFilter& filter, std::uint8_t btTypeOfReport,
                           std::int32_t Mechanic_id) {
  QueryFilter labour = FilterOfBills(filter, BillKind::kServiceBill);
  if (btTypeOfReport == kByVehicle) {
    labour.Add("terms1.vehicle_id is not null and terms1.vehicle_id <> 0");
  }
  if (Mechanic_id != 0) labour.Add(fmt::format("terms1.mechanic_id = {}", Mechanic_id));
  return labour;
}

}  // namespace pstolvane1
