#include "session/mInternationalization.h"

#include <fmt/format.h>

#include "session/QueryText.h"

namespace pstolvane1 {
namespace {

constexpr std::int32_t kDateSeparator = 29;  // LOCALE_SDATE

}  // namespace

std::string SqlDateText(Date dtDate) {
  const Date::Parts parts = dtDate.ToParts();
  return fmt::format("{:02}/{:02}/{:04}", parts.month, parts.day, parts.year);
}

// The way through the locale's short date, which has a four-digit year, leads back to the same day.
Date DateFromParts(std::uint8_t bytMonth, std::uint8_t bytDay, std::int16_t intYear) {
  return Date::FromYmd(intYear, bytMonth, bytDay);
}

std::string LocaleInfoText(const Locale& locale, std::int32_t lngLCType) {
  return lngLCType == kDateSeparator ? locale.DateSeparator() : std::string();
}

std::string DateSeparatorToSlash(std::string_view strDate, std::string_view strDateSeparator) {
  return ReplaceAll(strDate, strDateSeparator, "/");
}

}  // namespace pstolvane1
