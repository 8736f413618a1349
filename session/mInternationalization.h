// Dates and locale values, as query texts and row builders need them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "session/data/Date.h"
#include "session/rowset/Locale.h"

namespace pstolvane1 {

// The module's variables; once per thread, see modStolvane1.
struct mInternationalization {
  std::string strDateFormat;     // nothing assigns it: "" is the locale's short format
  std::string strDateSeparator;  // of the locale's short date, since SetConnection
};

// "MM/dd/yyyy", whatever the locale, without the time.
[[nodiscard]] std::string SqlDateText(Date dtDate);

// Error 13 for a day that the calendar does not have.
[[nodiscard]] Date DateFromParts(std::uint8_t bytMonth, std::uint8_t bytDay, std::int16_t intYear);

// The locale's value of that number: 29 is the date separator; "" for a number without one.
[[nodiscard]] std::string LocaleInfoText(const Locale& locale, std::int32_t lngLCType);

// strDate, a date in the locale's short format, with "/" for each strDateSeparator. The order of
// day and month stays the locale's.
[[nodiscard]] std::string DateSeparatorToSlash(std::string_view strDate,
                                               std::string_view strDateSeparator);

}  // namespace pstolvane1
