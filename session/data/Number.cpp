#include "session/data/Number.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "session/data/DecimalText.h"
#include "session/data/Error.h"

namespace pstolvane1 {

namespace {

constexpr std::int64_t kMoneyUnits = 10000;

template <typename Real>
std::string ShortestText(Real number) {
  std::array<char, 64> text;
  if (number == 0) return "0";
  const Real size = std::abs(number);
  const bool plain = size >= Real(1e-5) && size < Real(1e15);
  const auto end = std::to_chars(text.data(), text.data() + text.size(), number,
                                 plain ? std::chars_format::fixed : std::chars_format::scientific);
  return {text.data(), end.ptr};
}

// Half to even.
std::int64_t WholeMoney(Currency money) {
  const std::int64_t units = money.TenThousandths();
  const std::int64_t whole = units / kMoneyUnits;
  const std::int64_t rest = std::abs(units % kMoneyUnits);
  const bool away = rest > kMoneyUnits / 2 || (rest == kMoneyUnits / 2 && whole % 2 != 0);
  if (!away) return whole;
  return units < 0 ? whole - 1 : whole + 1;
}

}  // namespace

std::string TextOf(float number) { return ShortestText(number); }
std::string TextOf(double number) { return ShortestText(number); }

std::optional<Number> Number::FromText(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  const std::optional<DecimalText> number = DecimalText::Read(text);
  if (!number) return std::nullopt;
  const DecimalText::Scaled whole = number->TimesTenTo(0);
  if (whole.in_range && whole.exact) return Number(whole.floor);
  const DecimalText::Scaled money = number->TimesTenTo(4);
  if (money.in_range && money.exact) return Number(Currency::FromTenThousandths(money.floor));
  return Number(DoubleOf(text));
}

std::string Number::Told() const {
  if (const auto* whole = std::get_if<std::int64_t>(&value_)) return std::to_string(*whole);
  if (const auto* real = std::get_if<double>(&value_)) return TextOf(*real);
  return std::get<Currency>(value_).ToText();
}

void Number::RaiseOverflow(std::string_view target) const {
  throw Error(ErrorNumber::kOverflow, Told() + " is beyond the range of " + std::string(target));
}

std::int64_t Number::ToInt64() const {
  if (const auto* whole = std::get_if<std::int64_t>(&value_)) return *whole;
  if (const auto* money = std::get_if<Currency>(&value_)) return WholeMoney(*money);
  constexpr double kLimit = 9223372036854775808.0;  // 2^63
  const double rounded = std::nearbyint(std::get<double>(value_));
  if (!(rounded >= -kLimit && rounded < kLimit)) RaiseOverflow("a 64-bit whole number");
  return static_cast<std::int64_t>(rounded);
}

std::int32_t Number::ToInt32() const {
  using Limits = std::numeric_limits<std::int32_t>;
  constexpr std::string_view kTarget = "a 32-bit whole number";
  if (const auto* real = std::get_if<double>(&value_)) {
    if (!(std::abs(*real) < 4294967296.0)) RaiseOverflow(kTarget);
  }
  const std::int64_t whole = ToInt64();
  if (whole < Limits::min() || whole > Limits::max()) RaiseOverflow(kTarget);
  return static_cast<std::int32_t>(whole);
}

double Number::ToDouble() const {
  if (const auto* whole = std::get_if<std::int64_t>(&value_)) return static_cast<double>(*whole);
  if (const auto* money = std::get_if<Currency>(&value_)) return money->ToDouble();
  return std::get<double>(value_);
}

float Number::ToSingle() const {
  const double number = ToDouble();
  const auto single = static_cast<float>(number);
  if (std::isinf(single) && !std::isinf(number)) RaiseOverflow("a 32-bit float");
  return single;
}

Currency Number::ToCurrency() const {
  if (const auto* whole = std::get_if<std::int64_t>(&value_)) {
    std::int64_t units = 0;
    if (__builtin_mul_overflow(*whole, kMoneyUnits, &units)) RaiseOverflow("money");
    return Currency::FromTenThousandths(units);
  }
  if (const auto* real = std::get_if<double>(&value_)) return Currency::FromDouble(*real);
  return std::get<Currency>(value_);
}

bool Number::IsZero() const {
  if (const auto* whole = std::get_if<std::int64_t>(&value_)) return *whole == 0;
  if (const auto* money = std::get_if<Currency>(&value_)) return *money == Currency();
  return std::get<double>(value_) == 0;
}

double InSureDigits(double number) {
  constexpr int kBehindFirst = 14;
  std::array<char, 32> text;
  const auto end = std::to_chars(text.data(), text.data() + text.size(), number,
                                 std::chars_format::scientific, kBehindFirst);
  double read = number;
  std::from_chars(text.data(), end.ptr, read);
  return read + 0.0;
}

}  // namespace pstolvane1
