// The query of the standard rates.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace pstolvane1 {

enum class StandardRates { kCosts, kAll };
// The rows of Standardrate1 that end in time, the one in force last.
[[nodiscard]] std::string ComposeStandardRates(StandardRates which, std::string_view to,
                                               std::uint8_t bytYearno);

}  // namespace pstolvane1
