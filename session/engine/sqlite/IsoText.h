// Dates as the books store them: ISO text.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace pstolvane1::sqlite {

struct IsoText {
  int year, month, day;
  int hour, minute, second;
  std::string_view
      fraction;  // the digits behind the point, without trailing zeros; of the text read

  [[nodiscard]] bool IsMidnight() const {
    return hour == 0 && minute == 0 && second == 0 && fraction.empty();
  }
};

// "2004-03-31", with "T" or a blank and "14:05", "14:05:09" or "14:05:09.250" behind it. Empty for
// anything else, and for a day or a time that does not exist.
[[nodiscard]] std::optional<IsoText> ReadIsoText(std::string_view text);

// "2004-03-31", or "2004-03-31 14:05:09.25" when it is not midnight.
[[nodiscard]] std::string CanonicalText(const IsoText& date);

}  // namespace pstolvane1::sqlite
