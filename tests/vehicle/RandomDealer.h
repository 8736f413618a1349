// Small random books of a vehicle dealer with a workshop.
#pragma once

#include <cstdint>
#include <memory>

#include "golden/SmallBooks.h"

namespace pstolvane1 {

inline constexpr int kModels = 4, kMechanics = 3, kFinanciers = 4;

// Service bills and financed sales from 1 April 2003 to 31 March 2004, each with one to four lines
// of parts, labour or, in a sale, vehicles. Some are optional, some deleted; some have no model, no
// mechanic, no financier or no labour. All bills charge what their lines do.
[[nodiscard]] std::unique_ptr<golden::SmallBooks> RandomDealer(std::uint32_t seed);

}  // namespace pstolvane1
