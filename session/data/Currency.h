// Money: a fixed-point amount of four decimals.
#pragma once

#include <compare>
#include <cstdint>
#include <string>
#include <string_view>

#include "session/data/NeedsCpp20.h"

namespace pstolvane1 {

// A 64-bit count of ten-thousandths, so +-922,337,203,685,477.5807. Sums and differences are exact;
// leaving the range is error 6. A value type: copy it freely, use it from any thread.
class Currency {
 public:
  constexpr Currency() = default;

  [[nodiscard]] static constexpr Currency FromTenThousandths(std::int64_t units) {
    Currency money;
    money.units_ = units;
    return money;
  }
  // Scaled to ten-thousandths in double and rounded once, half to even. Error 6 outside the range
  // and for a value that is not a number.
  [[nodiscard]] static Currency FromDouble(double value);
  // "-1234.5", at most four decimals; error 13 for anything else.
  [[nodiscard]] static Currency FromText(std::string_view text);

  [[nodiscard]] constexpr std::int64_t TenThousandths() const { return units_; }
  [[nodiscard]] double ToDouble() const { return static_cast<double>(units_) / 10000.0; }
  // Always four decimals, "." as separator, no grouping: "-0.0500".
  [[nodiscard]] std::string ToText() const;

  Currency& operator+=(Currency other);
  Currency& operator-=(Currency other);
  [[nodiscard]] friend Currency operator+(Currency a, Currency b) { return a += b; }
  [[nodiscard]] friend Currency operator-(Currency a, Currency b) { return a -= b; }
  [[nodiscard]] Currency operator-() const;
  friend constexpr auto operator<=>(Currency, Currency) = default;

 private:
  std::int64_t units_ = 0;
};

}  // namespace pstolvane1
