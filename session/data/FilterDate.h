// The dates that a filter's text names.
#pragma once

#include <optional>
#include <string_view>

#include "session/data/Date.h"

namespace pstolvane1 {

// "03/31/2004" (month first) or "2004-03-31", with "/" or "-" between and one or two digits for
// month and day; a time "14:05", "14:05:09" or "2:05:09 PM" may follow. The year has four digits.
// Blanks around it are passed over. Empty for anything else, and for a day that the calendar does
// not have.
[[nodiscard]] std::optional<Date> ReadFilterDate(std::string_view text);

}  // namespace pstolvane1
