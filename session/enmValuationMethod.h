// How stock is valued.
#pragma once

#include <cstdint>

#include "session/EnumName.h"

namespace pstolvane1 {

enum enmValuationMethod : std::int32_t {
  FifoRate = 1,
  LifoRate = 2,
  AverageRate = 3,
  LastPurchaseRate = 4,
  LastSaleRate = 5,
  CurrentRate = 6,  // no report values stock by it: asked for, it gives an empty result
  standardrate = 7,
  StandardPrice = 8,
  SimpleAvg = 9,
};

inline constexpr EnumName kValuationMethodNames[] = {
    {"FifoRate", FifoRate},         {"LifoRate", LifoRate},
    {"AverageRate", AverageRate},   {"LastPurchaseRate", LastPurchaseRate},
    {"LastSaleRate", LastSaleRate}, {"CurrentRate", CurrentRate},
    {"standardrate", standardrate}, {"StandardPrice", StandardPrice},
    {"SimpleAvg", SimpleAvg},
};

}  // namespace pstolvane1
