// The text of a date by one locale's pattern, read once.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "session/data/Date.h"

namespace pstolvane1 {

// The names and digits that a pattern's fields are written with; UTF-8.
struct DateNames {
  std::array<std::string, 12> months;  // inside a date: "mars"
  std::array<std::string, 12> short_months;
  std::array<std::string, 12> standalone_months;  // alone: "Mars"
  std::array<std::string, 12> short_standalone_months;
  std::array<std::string, 7> days;  // from Sunday
  std::array<std::string, 7> short_days;
  std::array<std::string, 2> halves;  // before and after noon
  std::string era;                    // of all years that a Date has
  std::string digits[10];
};

// A date pattern in Unicode's letters ("dd/MM/yyyy", "EEEE d MMMM y"), compiled to a list of
// fields.
class DatePattern {
 public:
  DatePattern() = default;
  // A two-digit year becomes a four-digit one. Error 3001 for a field that a pattern of a date or a
  // time of day cannot have.
  explicit DatePattern(std::string_view pattern);

  [[nodiscard]] std::string Format(const Date::Parts& parts, const DateNames& names) const;

  // The text between the first two fields: the date separator of a short date.
  [[nodiscard]] const std::string& FirstSeparator() const { return first_separator_; }

  // Reads numbers in the order of the pattern's day, month and year, whatever stands between them.
  // A year of two digits lies in 1930 to 2029. Error 13 for a text that is not such a date.
  [[nodiscard]] Date Parse(std::string_view text, const DateNames& names) const;

 private:
  struct Field {
    char letter = 0;  // 0: literal text
    int width = 0;
    std::string literal;
  };
  static void WriteField(const Field& field, const Date::Parts& parts, const DateNames& names,
                         std::string& text);
  std::vector<Field> fields_;
  std::string first_separator_;
};

}  // namespace pstolvane1
