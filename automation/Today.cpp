#include "automation/Today.h"

#include <charconv>
#include <cstdlib>
#include <ctime>
#include <string_view>

namespace pstolvane1::automation {
namespace {

constexpr int kFirstYear = 1900;

Date DayOf(const std::tm& day) {
  return Date::FromYmd(day.tm_year + kFirstYear, day.tm_mon + 1, day.tm_mday);
}

}  // namespace

Date Today() {
  std::tm day{};
  if (const char* fixed = std::getenv("SOURCE_DATE_EPOCH")) {
    const std::string_view text = fixed;
    std::time_t seconds = 0;
    if (std::from_chars(text.data(), text.data() + text.size(), seconds).ec == std::errc()) {
      return DayOf(*gmtime_r(&seconds, &day));
    }
  }
  const std::time_t now = std::time(nullptr);
  return DayOf(*localtime_r(&now, &day));
}

}  // namespace pstolvane1::automation
