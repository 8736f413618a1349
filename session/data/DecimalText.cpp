#include "session/data/DecimalText.h"

#include <algorithm>
#include <charconv>
#include <limits>

#include "session/data/Ascii.h"

namespace pstolvane1 {

namespace {

std::size_t DigitsFrom(std::string_view text, std::size_t at) {
  std::size_t end = at;
  while (end < text.size() && IsDigit(text[end])) ++end;
  return end;
}

struct Reading {
  DecimalText number;
  std::size_t length = 0;
};

Reading ReadPrefix(std::string_view text) {
  constexpr int kMostExponent = 9999;
  Reading reading;
  std::size_t at = 0;
  if (!text.empty() && (text[0] == '-' || text[0] == '+')) {
    reading.number.negative = text[0] == '-';
    at = 1;
  }
  std::size_t end = DigitsFrom(text, at);
  reading.number.whole = text.substr(at, end - at);
  if (end < text.size() && text[end] == '.') {
    const std::size_t behind = DigitsFrom(text, end + 1);
    reading.number.fraction = text.substr(end + 1, behind - end - 1);
    end = behind;
  }
  if (reading.number.whole.empty() && reading.number.fraction.empty()) return {};
  reading.length = end;
  if (end < text.size() && (text[end] == 'e' || text[end] == 'E')) {
    std::size_t digits = end + 1;
    const bool negative = digits < text.size() && text[digits] == '-';
    if (digits < text.size() && (text[digits] == '-' || text[digits] == '+')) ++digits;
    const std::size_t behind = DigitsFrom(text, digits);
    if (behind > digits) {
      int exponent = 0;
      for (std::size_t i = digits; i < behind; ++i) {
        exponent = std::min(kMostExponent, exponent * 10 + (text[i] - '0'));
      }
      reading.number.exponent = negative ? -exponent : exponent;
      reading.length = behind;
    }
  }
  return reading;
}

}  // namespace

std::optional<DecimalText> DecimalText::Read(std::string_view text) {
  const Reading reading = ReadPrefix(text);
  if (reading.length == 0 || reading.length != text.size()) return std::nullopt;
  return reading.number;
}

std::size_t DecimalText::Length(std::string_view text) { return ReadPrefix(text).length; }

// The digits are one row, of which the first kept are the whole number: "12.345" times 100 keeps
// four of the five.
DecimalText::Scaled DecimalText::TimesTenTo(int decimals) const {
  using Limits = std::numeric_limits<std::int64_t>;
  const std::uint64_t most = static_cast<std::uint64_t>(Limits::max()) + (negative ? 1 : 0);
  const Scaled beyond{negative ? Limits::min() : Limits::max(), false, false};
  const auto digits = static_cast<std::ptrdiff_t>(whole.size() + fraction.size());
  const std::ptrdiff_t kept = static_cast<std::ptrdiff_t>(whole.size()) + exponent + decimals;
  const auto digit = [&](std::ptrdiff_t i) {
    const auto place = static_cast<std::size_t>(i);
    const char c = place < whole.size() ? whole[place] : fraction[place - whole.size()];
    return static_cast<std::uint64_t>(c - '0');
  };
  std::uint64_t size = 0;
  for (std::ptrdiff_t i = 0; i < kept; ++i) {
    if (i >= digits && size == 0) break;
    const std::uint64_t next = i < digits ? digit(i) : 0;
    if (size > (most - next) / 10) return beyond;
    size = size * 10 + next;
  }
  bool exact = true;
  for (std::ptrdiff_t i = std::max<std::ptrdiff_t>(0, kept); i < digits && exact; ++i) {
    exact = digit(i) == 0;
  }
  if (!negative) return {static_cast<std::int64_t>(size), exact, true};
  if (!exact && size == most) return beyond;
  return {static_cast<std::int64_t>(0 - size - (exact ? 0 : 1)), exact, true};
}

double DoubleOf(std::string_view decimal_text) {
  if (!decimal_text.empty() && decimal_text.front() == '+') decimal_text.remove_prefix(1);
  double value = 0;
  const auto result =
      std::from_chars(decimal_text.data(), decimal_text.data() + decimal_text.size(), value);
  if (result.ec != std::errc::result_out_of_range) return value;
  // Beyond the range or too small to tell from 0.
  const std::optional<DecimalText> number = DecimalText::Read(decimal_text);
  if (!number) return value;
  const double sign = number->negative ? -1.0 : 1.0;
  if (number->TimesTenTo(0).in_range) return sign * 0.0;
  return sign * std::numeric_limits<double>::infinity();
}

}  // namespace pstolvane1
