#include "session/data/Currency.h"

#include <cmath>
#include <optional>

#include "session/data/DecimalText.h"
#include "session/data/Error.h"
#include "session/data/Number.h"

namespace pstolvane1 {

namespace {

constexpr std::int64_t kUnits = 10000;

[[noreturn]] void RaiseOverflow(const std::string& what) {
  throw Error(ErrorNumber::kOverflow, what + " is beyond the range of money");
}

}  // namespace

Currency Currency::FromDouble(double value) {
  constexpr double kLimit = 9223372036854775808.0;  // 2^63
  const double units = std::nearbyint(value * 10000.0);
  if (!(units >= -kLimit && units < kLimit)) RaiseOverflow(TextOf(value));
  return FromTenThousandths(static_cast<std::int64_t>(units));
}

Currency Currency::FromText(std::string_view text) {
  const std::optional<DecimalText> number = DecimalText::Read(text);
  const bool plain = number && text.front() != '+' && text.find_first_of("eE") == text.npos;
  if (!plain || number->fraction.size() > 4) {
    throw Error(
        ErrorNumber::kTypeMismatch,
        "\"" + std::string(text) + "\" is not an amount of money with at most four decimals");
  }
  const DecimalText::Scaled units = number->TimesTenTo(4);
  if (!units.in_range) RaiseOverflow(std::string(text));
  return FromTenThousandths(units.floor);
}

std::string Currency::ToText() const {
  const bool negative = units_ < 0;
  const auto size =
      negative ? 0 - static_cast<std::uint64_t>(units_) : static_cast<std::uint64_t>(units_);
  std::string decimals = std::to_string(size % kUnits);
  decimals.insert(0, 4 - decimals.size(), '0');
  return (negative ? "-" : "") + std::to_string(size / kUnits) + "." + decimals;
}

Currency& Currency::operator+=(Currency other) {
  std::int64_t sum = 0;
  if (__builtin_add_overflow(units_, other.units_, &sum)) {
    RaiseOverflow("the sum of " + ToText() + " and " + other.ToText());
  }
  units_ = sum;
  return *this;
}

Currency& Currency::operator-=(Currency other) {
  std::int64_t difference = 0;
  if (__builtin_sub_overflow(units_, other.units_, &difference)) {
    RaiseOverflow("the difference of " + ToText() + " and " + other.ToText());
  }
  units_ = difference;
  return *this;
}

Currency Currency::operator-() const { return Currency() - *this; }

}  // namespace pstolvane1
