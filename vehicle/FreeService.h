// The six services that a maker pays the dealer for.
#pragma once

#include <array>
#include <cstdint>

#include "movements/QueryFilter.h"

namespace pstolvane1 {

// Their ServiceType_id, in the order of their columns.
inline constexpr std::array<std::int32_t, 6> kFreeServices = {3, 5, 7, 9, 11, 13};

// Service bills of a free service under SetFilter.
[[nodiscard]] QueryFilter FilterOfFreeServices(const DocumentFilter& filter);

}  // namespace pstolvane1
