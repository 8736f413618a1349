// The text of a number in one locale's style: plain data, and the fast path that every cell takes.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace pstolvane1 {

// All texts are UTF-8. The signs of a negative number stand in its own prefix and suffix.
struct NumberStyle {
  std::string prefix;
  std::string suffix;
  std::string negative_prefix;
  std::string negative_suffix;
  std::string decimal_separator;
  std::string group_separator;
  int decimals = 2;
  int first_group = 3;     // digits of the group next to the decimal separator; 0: no grouping
  int further_groups = 3;  // of each group before it: 2 in India
  int minimum_before_group = 1;  // digits that must stand before the first separator
  std::string digits[10];        // the locale's own digits
};

// The value is taken to 15 significant decimal digits and rounded half away from zero to the
// style's decimals; what rounds to zero has no sign. Error 6 for what is not a finite number.
// Example, India: -1234567.885 gives "-12,34,567.89".
[[nodiscard]] std::string FormatDecimal(double value, const NumberStyle& style);
// The same behind what the text holds already.
void AppendDecimal(double value, const NumberStyle& style, std::string& text);

// The value of a text that FormatDecimal could have written; empty for any other text.
[[nodiscard]] std::optional<double> ReadDecimal(std::string_view text, const NumberStyle& style);

}  // namespace pstolvane1
