#include "session/engine/sqlite/Decimal.h"

#include <array>
#include <charconv>
#include <cmath>
#include <string>

namespace pstolvane1::sqlite {
namespace {

constexpr int kSignificantDigits = 15;

// The digits of |x| and where its point is: x = 0.d1 d2 d3... * 10^point.
struct Digits {
  std::array<char, kSignificantDigits + 1> text;  // text[0] is room for a carry
  int point;
};

Digits DigitsOf(double magnitude) {
  std::array<char, 32> scientific;
  const auto end = std::to_chars(scientific.data(), scientific.data() + scientific.size(),
                                 magnitude, std::chars_format::scientific, kSignificantDigits - 1);
  // d.dddddddddddddde+xx
  Digits digits{};
  digits.text[0] = '0';
  digits.text[1] = scientific[0];
  for (std::size_t i = 2; i <= kSignificantDigits; ++i) digits.text[i] = scientific[i];
  const char* exponent = scientific.data() + kSignificantDigits + 2;
  if (*exponent == '+') ++exponent;
  std::from_chars(exponent, end.ptr, digits.point);
  ++digits.point;
  return digits;
}

}  // namespace

Int128 PowerOfTen(int n) {
  Int128 power = 1;
  for (int i = 0; i < n; ++i) power *= 10;
  return power;
}

std::optional<Int128> UnitsOf(double x, int places) {
  // An 80-bit product keeps the 53 bits of x apart from the neighbours of a half.
  const long double units =
      std::nearbyint(static_cast<long double>(x) * static_cast<long double>(PowerOfTen(places)));
  if (!(std::fabs(units) < 1e38L)) return std::nullopt;
  return static_cast<Int128>(units);
}

double FromUnits(Int128 units, int places) {
  return static_cast<double>(static_cast<long double>(units) /
                             static_cast<long double>(PowerOfTen(places)));
}

double RoundDecimal(double x, int n) {
  const double magnitude = std::fabs(x);
  if (magnitude == 0 || !std::isfinite(magnitude)) return x;
  Digits digits = DigitsOf(magnitude);
  const int kept = digits.point + n;  // how many of the 15 digits stay
  if (kept >= kSignificantDigits) return x;
  if (kept < 0) return std::copysign(0.0, x);
  const auto last = static_cast<std::size_t>(kept);
  if (digits.text[last + 1] >= '5') {
    std::size_t at = last;
    while (digits.text[at] == '9') digits.text[at--] = '0';
    ++digits.text[at];
  }
  std::string text(digits.text.data(), last + 1);
  text += 'e';
  text += std::to_string(digits.point - kept);
  double rounded = 0;
  std::from_chars(text.data(), text.data() + text.size(), rounded);
  return std::copysign(rounded, x);
}

}  // namespace pstolvane1::sqlite
