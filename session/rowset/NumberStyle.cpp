#include "session/rowset/NumberStyle.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <optional>
#include <string_view>
#include <system_error>

#include "session/data/Error.h"

namespace pstolvane1 {
namespace {

constexpr int kSignificantDigits = 15;

// The decimal digits of a number, most significant first, and how many of them stand before the
// decimal separator (it can be negative or beyond the digits: zeros fill in).
struct Digits {
  std::array<char, kSignificantDigits + 1> digit{};
  int count = 0;
  int before_separator = 0;
};

// Of a number that a decimal of at most four places and 15 digits stands for, as nearly every
// figure of a report is: that decimal. The quotient is the float nearest to it, and such a decimal
// comes back from its float.
std::optional<Digits> DigitsOfFourPlaces(double magnitude) {
  constexpr double kPlaces = 1e4;
  constexpr double kTooLong = 1e15;
  const double scaled = std::nearbyint(magnitude * kPlaces);
  if (!(scaled < kTooLong) || scaled / kPlaces != magnitude) return std::nullopt;
  Digits digits;
  char* const first = digits.digit.data();
  const auto [end, error] =
      std::to_chars(first, first + digits.digit.size(), static_cast<std::int64_t>(scaled));
  static_cast<void>(error);
  digits.count = static_cast<int>(end - first);
  digits.before_separator = digits.count - 4;
  return digits;
}

Digits SignificantDigits(double magnitude) {
  if (const std::optional<Digits> digits = DigitsOfFourPlaces(magnitude)) return *digits;
  std::array<char, 32> text{};
  const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), magnitude,
                                          std::chars_format::scientific, kSignificantDigits - 1);
  static_cast<void>(error);  // 32 characters hold every double of 15 digits
  Digits digits;
  const char* exponent_sign = std::find(text.data(), end, 'e');
  for (const char* c = text.data(); c != exponent_sign; ++c) {
    if (*c != '.') digits.digit[static_cast<std::size_t>(digits.count++)] = *c;
  }
  int exponent = 0;
  const char* first = exponent_sign + 1;
  if (*first == '+') ++first;
  std::from_chars(first, end, exponent);
  digits.before_separator = exponent + 1;
  return digits;
}

// Rounds half away from zero so that at most `decimals` digits are left behind the separator.
void RoundTo(int decimals, Digits& digits) {
  const int keep = digits.before_separator + decimals;
  if (keep >= digits.count) return;
  if (keep < 0) {
    digits.count = 0;
    return;
  }
  const bool up = digits.digit[static_cast<std::size_t>(keep)] >= '5';
  digits.count = keep;
  if (!up) return;
  for (int i = keep - 1; i >= 0; --i) {
    char& digit = digits.digit[static_cast<std::size_t>(i)];
    if (digit != '9') {
      ++digit;
      return;
    }
    digit = '0';
  }
  std::copy_backward(digits.digit.begin(), digits.digit.begin() + digits.count,
                     digits.digit.begin() + digits.count + 1);
  digits.digit[0] = '1';
  ++digits.count;
  ++digits.before_separator;
}

bool IsZero(const Digits& digits) {
  return std::all_of(digits.digit.begin(), digits.digit.begin() + digits.count,
                     [](char digit) { return digit == '0'; });
}

// True where a group separator stands in front of the digit that has `following` digits behind it
// (itself counted) up to the decimal separator.
bool GroupStartsAt(int following, int total, const NumberStyle& style) {
  if (style.first_group <= 0 || following < style.first_group) return false;
  if (total < style.first_group + style.minimum_before_group) return false;
  return (following - style.first_group) % style.further_groups == 0;
}

}  // namespace

std::string FormatDecimal(double value, const NumberStyle& style) {
  std::string text;
  AppendDecimal(value, style, text);
  return text;
}

void AppendDecimal(double value, const NumberStyle& style, std::string& text) {
  if (!std::isfinite(value)) {
    throw Error(ErrorNumber::kOverflow, "a value that is not a finite number has no text");
  }
  Digits digits = SignificantDigits(std::fabs(value));
  RoundTo(style.decimals, digits);
  const bool negative = std::signbit(value) && !IsZero(digits);

  const auto digit_at = [&digits, &style](int place) -> std::string_view {
    const bool within = place >= 0 && place < digits.count;
    const char digit = within ? digits.digit[static_cast<std::size_t>(place)] : '0';
    return style.digits[digit - '0'];
  };
  text += negative ? style.negative_prefix : style.prefix;
  const int whole = std::max(digits.before_separator, 1);
  const int first_place = digits.before_separator - whole;
  for (int i = 0; i < whole; ++i) {
    if (i > 0 && GroupStartsAt(whole - i, whole, style)) text += style.group_separator;
    text += digit_at(first_place + i);
  }
  if (style.decimals > 0) {
    text += style.decimal_separator;
    for (int i = 0; i < style.decimals; ++i) text += digit_at(digits.before_separator + i);
  }
  text += negative ? style.negative_suffix : style.suffix;
}

std::optional<double> ReadDecimal(std::string_view text, const NumberStyle& style) {
  std::string plain;
  for (std::string_view rest = text; !rest.empty();) {
    const auto* const digit =
        std::find_if(std::begin(style.digits), std::end(style.digits),
                     [rest](const std::string& shape) { return rest.starts_with(shape); });
    if (digit != std::end(style.digits)) {
      plain += static_cast<char>('0' + (digit - std::begin(style.digits)));
      rest.remove_prefix(digit->size());
    } else if (rest.starts_with(style.decimal_separator)) {
      plain += '.';
      rest.remove_prefix(style.decimal_separator.size());
    } else {
      rest.remove_prefix(1);
    }
  }
  double magnitude = 0;
  const auto [end, error] = std::from_chars(plain.data(), plain.data() + plain.size(), magnitude);
  if (error != std::errc{}) return std::nullopt;
  // Writing the value again settles what a separator, a sign or a symbol in the wrong place means.
  for (const double value : {magnitude, -magnitude}) {
    if (FormatDecimal(value, style) == text) return value;
  }
  return std::nullopt;
}

}  // namespace pstolvane1
