// What mechanics billed, and how much of it was labour.
#pragma once

#include <cstdint>
#include <string_view>

#include "movements/QueryFilter.h"

namespace pstolvane1 {

// btTypeOfReport: by the model of the vehicle, or by labour item (any other value).
inline constexpr std::uint8_t kByVehicle = 1;

// Service bills under SetFilter, by vehicle those with a vehicle, of one mechanic unless
// Mechanic_id is 0.
[[nodiscard]] QueryFilter FilterOfLabour(const DocumentFilter& filter, std::uint8_t btTypeOfReport,
                                         std::int32_t Mechanic_id);

// The labour of a document: of its lines whose items do not count for stock in hand. Null without
// such a line.
inline constexpr std::string_view kLabourOfBill =
    "(Select sum(desrdetails1.qtydespout * desrdetails1.price) From desrdetails1 "
    "inner join items1 on items1.item_id = desrdetails1.item_id "
    "Where desrdetails1.desr_id = desr1.desr_id and items1.considerforsih = 0)";

}  // namespace pstolvane1
