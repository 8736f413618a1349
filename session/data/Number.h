// A number of any kind on its way from one type to another.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "session/data/Currency.h"

namespace pstolvane1 {

// What a Variant or a cell holds as a number, exactly. Every conversion is error 6 where the number
// lies outside the target's range; a fraction that the target cannot hold is rounded half to even.
class Number {
 public:
  Number(std::int64_t whole) : value_(whole) {}                // NOLINT: converts on purpose
  Number(std::int32_t whole) : value_(std::int64_t{whole}) {}  // NOLINT
  Number(double real) : value_(real) {}                        // NOLINT
  Number(Currency money) : value_(money) {}                    // NOLINT
  // Decimal text, blanks around it allowed; empty for any other.
  [[nodiscard]] static std::optional<Number> FromText(std::string_view text);

  [[nodiscard]] std::int32_t ToInt32() const;
  [[nodiscard]] std::int64_t ToInt64() const;
  [[nodiscard]] float ToSingle() const;
  [[nodiscard]] double ToDouble() const;
  [[nodiscard]] Currency ToCurrency() const;
  [[nodiscard]] bool IsZero() const;

 private:
  [[noreturn]] void RaiseOverflow(std::string_view target) const;
  [[nodiscard]] std::string Told() const;

  std::variant<std::int64_t, double, Currency> value_;
};

// The shortest decimal text that reads back to the number, with "." and, from 1e15 on and below
// 1e-5, an exponent.
[[nodiscard]] std::string TextOf(float number);
[[nodiscard]] std::string TextOf(double number);

// The number that its first 15 significant digits say, which are those of a decimal that a 64-bit
// float keeps: 0.87655 for 0.8765499999999999. A zero has no sign.
[[nodiscard]] double InSureDigits(double number);

}  // namespace pstolvane1
