#include <array>
#include <charconv>
#include <cmath>
#include <fmt/format.h>
#include <limits>
#include <string>

#include "session/data/Ascii.h"
#include "session/data/Currency.h"
#include "session/engine/sqlite/Decimal.h"
#include "session/engine/sqlite/Functions.h"
#include "session/sql/DateText.h"

namespace pstolvane1::sqlite {
namespace {

[[noreturn]] void ThrowTextNot(std::string_view text, std::string_view what) {
  ThrowNot(fmt::format("\"{}\"", text), what);
}

bool TakeSign(std::string_view& text) {
  const bool negative = !text.empty() && text[0] == '-';
  if (negative || (!text.empty() && text[0] == '+')) text.remove_prefix(1);
  return negative;
}

std::optional<std::int64_t> WholeOf(std::string_view text, std::string_view whole) {
  const bool negative = TakeSign(text);
  if (text.empty()) ThrowTextNot(whole, "a whole number");
  std::int64_t number = 0;
  bool fits = true;
  for (const char c : text) {
    if (!IsDigit(c)) ThrowTextNot(whole, "a whole number");
    const int digit = negative ? -(c - '0') : c - '0';
    fits = fits && !__builtin_mul_overflow(number, std::int64_t{10}, &number) &&
           !__builtin_add_overflow(number, std::int64_t{digit}, &number);
  }
  if (!fits) return std::nullopt;
  return number;
}

void TextWhole(Call& call) {
  const std::string_view text = Trimmed(call.Text(0), kWhiteSpace);
  if (text.empty()) return call.Return(std::int64_t{0});
  const bool narrow = call.Setting(1) == 32;
  const std::optional<std::int64_t> number = WholeOf(text, call.Text(0));
  if (!number || (narrow && (*number < std::numeric_limits<std::int32_t>::min() ||
                             *number > std::numeric_limits<std::int32_t>::max()))) {
    ThrowOutOfRange(fmt::format("\"{}\"", text),
                    narrow ? "a 32-bit whole number" : "a 64-bit whole number");
  }
  call.Return(*number);
}

// Digits with an optional point, as units of that many places, half away from zero; commas before
// the point are passed over where they are allowed.
std::int64_t FixedOf(std::string_view text, int places, bool commas, std::string_view what) {
  const std::string_view whole = text;
  const bool negative = TakeSign(text);
  Int128 units = 0;
  int behind = -1;  // decimals taken so far; -1 before the point
  bool any = false;
  bool up = false;
  for (const char c : text) {
    if (c == '.' && behind < 0) {
      behind = 0;
    } else if (c == ',' && commas && behind < 0) {
      continue;
    } else if (!IsDigit(c)) {
      ThrowTextNot(whole, what);
    } else {
      any = true;
      if (behind >= places) {
        if (behind == places) up = c >= '5';
        behind = places + 1;
        continue;
      }
      units = units * 10 + (c - '0');
      if (behind >= 0) ++behind;
      if (units > std::numeric_limits<std::int64_t>::max()) {
        ThrowOutOfRange(fmt::format("\"{}\"", whole), what);
      }
    }
  }
  if (!any) ThrowTextNot(whole, what);
  units *= PowerOfTen(places - std::min(places, std::max(behind, 0)));
  if (up) ++units;
  if (units > std::numeric_limits<std::int64_t>::max()) {
    ThrowOutOfRange(fmt::format("\"{}\"", whole), what);
  }
  const auto fixed = static_cast<std::int64_t>(units);
  return negative ? -fixed : fixed;
}

void TextMoney(Call& call) {
  const std::string_view text = Trimmed(call.Text(0), kWhiteSpace);
  if (text.empty()) return call.Return(std::int64_t{0});
  const std::int64_t units = FixedOf(text, 4, true, "an amount of money");
  if (units % 10000 == 0) return call.Return(units / 10000);
  call.Return(Currency::FromTenThousandths(units).ToDouble());
}

// As many digits as a text has may stand; the nearest double of the rounded digits is the value.
void TextDecimal(Call& call) {
  const std::string_view text = Trimmed(call.Text(0), kWhiteSpace);
  const int places = call.Setting(1);
  std::string_view digits = text;
  const bool negative = TakeSign(digits);
  const std::size_t point = std::min(digits.find('.'), digits.size());
  std::string kept;
  bool any = false;
  for (std::size_t i = 0; i < digits.size(); ++i) {
    if (i == point) continue;
    if (!IsDigit(digits[i])) ThrowTextNot(text, "a decimal number");
    any = true;
    if (i < point || i - point <= static_cast<std::size_t>(places)) kept += digits[i];
  }
  if (!any) ThrowTextNot(text, "a decimal number");
  const std::size_t next = point + static_cast<std::size_t>(places) + 1;
  if (next < digits.size() && digits[next] >= '5') {
    std::size_t at = kept.size();
    while (at > 0 && kept[at - 1] == '9') kept[--at] = '0';
    if (at == 0) {
      kept.insert(0, 1, '1');
    } else {
      ++kept[at - 1];
    }
  }
  const std::size_t decimals =
      point < digits.size() ? std::min(digits.size() - point - 1, static_cast<std::size_t>(places))
                            : 0;
  kept += "e-" + std::to_string(decimals);
  double number = 0;
  if (std::from_chars(kept.data(), kept.data() + kept.size(), number).ec != std::errc{}) {
    ThrowOutOfRange(fmt::format("\"{}\"", text), "a decimal number");
  }
  call.Return(negative ? -number : number);
}

void TextReal(Call& call) {
  const std::string_view text = Trimmed(call.Text(0), kWhiteSpace);
  if (text.empty()) return call.Return(0.0);
  std::string_view digits = text;
  const bool negative = TakeSign(digits);
  double number = 0;
  const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  // Names such as "inf" are no numbers here, nor is a second sign.
  if (digits.empty() || (!IsDigit(digits[0]) && digits[0] != '.') ||
      read.ptr != digits.data() + digits.size()) {
    ThrowTextNot(text, "a number");
  }
  if (read.ec == std::errc::result_out_of_range) {
    ThrowOutOfRange(fmt::format("\"{}\"", text), "a number");
  }
  call.Return(negative ? -number : number);
}

bool IsWord(std::string_view text, std::string_view word) {
  return text.size() == word.size() && std::equal(text.begin(), text.end(), word.begin(),
                                                  [](char a, char b) { return (a | 0x20) == b; });
}

void TextFlag(Call& call) {
  const std::string_view text = Trimmed(call.Text(0), kWhiteSpace);
  if (IsWord(text, "true")) return call.Return(std::int64_t{1});
  if (IsWord(text, "false")) return call.Return(std::int64_t{0});
  if (text.empty() || text.find_first_not_of("+-0123456789") != std::string_view::npos) {
    ThrowTextNot(text, "a flag");
  }
  const std::optional<std::int64_t> number = WholeOf(text, text);
  call.Return(std::int64_t{number == 0 ? 0 : 1});
}

void TextDate(Call& call) {
  const std::optional<std::string> date = sql::ReadDateText(call.Text(0));
  if (!date) ThrowTextNot(call.Text(0), "a date");
  call.Return(*date);
}

void ReturnText(Call& call, std::string_view text, int limit, std::string_view what) {
  if (text.size() > static_cast<std::size_t>(limit)) {
    ThrowOutOfRange(text, fmt::format("a text of {} characters made from {}", limit, what));
  }
  call.Return(text);
}

void WholeText(Call& call) {
  const std::string text = std::to_string(call.Whole(0));
  const bool fits = text.size() <= static_cast<std::size_t>(call.Setting(1));
  call.Return(fits ? std::string_view(text) : std::string_view("*"));
}

void MoneyText(Call& call) {
  const std::int64_t units = Currency::FromDouble(call.Number(0)).TenThousandths();
  const std::uint64_t magnitude =
      units < 0 ? 0 - static_cast<std::uint64_t>(units) : static_cast<std::uint64_t>(units);
  const std::uint64_t cents = (magnitude + 50) / 100;
  const std::string_view sign = units < 0 && cents != 0 ? "-" : "";
  ReturnText(call, fmt::format("{}{}.{:02}", sign, cents / 100, cents % 100), call.Setting(1),
             "money");
}

void DecimalText(Call& call) {
  const int places = call.Setting(1);
  const std::optional<Int128> units = UnitsOf(call.Number(0), places);
  if (!units) ThrowOutOfRange(fmt::format("{}", call.Number(0)), "a decimal");
  Int128 magnitude = *units < 0 ? -*units : *units;
  std::string digits;
  for (; magnitude > 0; magnitude /= 10) {
    digits.insert(0, 1, static_cast<char>('0' + static_cast<int>(magnitude % 10)));
  }
  const auto decimals = static_cast<std::size_t>(places);
  if (digits.size() <= decimals) digits.insert(0, decimals + 1 - digits.size(), '0');
  if (decimals > 0) digits.insert(digits.size() - decimals, 1, '.');
  if (*units < 0) digits.insert(0, 1, '-');
  ReturnText(call, digits, call.Setting(2), "a decimal");
}

void RealText(Call& call) {
  std::string text = fmt::format("{:.6g}", call.Number(0));
  // Three digits of exponent: 1.23457e+06 is 1.23457e+006.
  if (const std::size_t e = text.find('e'); e != std::string::npos && text.size() - e < 5) {
    text.insert(e + 2, 1, '0');
  }
  ReturnText(call, text == "-0" ? "0" : text, call.Setting(1), "a number");
}

constexpr std::array kConversionFunctions{
    ScalarFunction{"pst_text_whole", 2, &Scalar<TextWhole>},
    ScalarFunction{"pst_text_money", 1, &Scalar<TextMoney>},
    ScalarFunction{"pst_text_decimal", 2, &Scalar<TextDecimal>},
    ScalarFunction{"pst_text_real", 1, &Scalar<TextReal>},
    ScalarFunction{"pst_text_flag", 1, &Scalar<TextFlag>},
    ScalarFunction{"pst_text_date", 1, &Scalar<TextDate>},
    ScalarFunction{"pst_whole_text", 2, &Scalar<WholeText>},
    ScalarFunction{"pst_money_text", 2, &Scalar<MoneyText>},
    ScalarFunction{"pst_decimal_text", 3, &Scalar<DecimalText>},
    ScalarFunction{"pst_real_text", 2, &Scalar<RealText>},
};

}  // namespace

std::span<const ScalarFunction> ConversionFunctions() { return kConversionFunctions; }

}  // namespace pstolvane1::sqlite
