// Reading a number that is written in decimals, without losing any of them.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace pstolvane1 {

// "-12.5", "+3", ".5", "1e-4": sign, digits with at most one ".", exponent. The texts are views of
// the one that was read.
struct DecimalText {
  bool negative = false;
  std::string_view whole;     // digits before the point
  std::string_view fraction;  // digits behind it
  int exponent = 0;           // of ten; beyond +-9999 it stays there

  // Empty unless the whole text is a number with at least one digit.
  [[nodiscard]] static std::optional<DecimalText> Read(std::string_view text);
  // The length of the number that the text begins with; 0 for none.
  [[nodiscard]] static std::size_t Length(std::string_view text);

  // The number times 10^decimals as a whole number, rounded down.
  struct Scaled {
    std::int64_t floor;  // at the end of the range where the number lies beyond it
    bool exact;          // nothing was rounded away
    bool in_range;
  };
  [[nodiscard]] Scaled TimesTenTo(int decimals) const;
};

// The number nearest to a text that DecimalText reads; infinite beyond the range of double.
[[nodiscard]] double DoubleOf(std::string_view decimal_text);

}  // namespace pstolvane1
