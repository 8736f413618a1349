// The fast path against ICU's own formatters, on random values.
#include <bit>
#include <cmath>
#include <cstdint>
#include <fmt/format.h>
#include <gtest/gtest.h>
#include <memory>
#include <random>
#include <string>
#include <unicode/decimfmt.h>
#include <unicode/smpdtfmt.h>

#include "session/rowset/Locale.h"

namespace pstolvane1 {
namespace {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr int kValues = 50'000;
#else
constexpr int kValues = 1'000'000;
#endif

// Amounts as books have them, quotients with many digits, halves, and any finite bit pattern.
double RandomValue(std::mt19937_64& random) {
  const auto bits = random();
  const auto whole = static_cast<double>(static_cast<std::int64_t>(random() % 2'000'000'000'000) -
                                         1'000'000'000'000);
  switch (bits % 5) {
    case 0:
      return whole / 100.0;
    case 1:
      return whole / 10000.0;
    case 2:
      return (std::trunc(whole / 1e6) + 0.5) / 100.0;
    case 3:
      return whole / static_cast<double>(random() % 9973 + 1);
    default:
      for (;;) {
        const auto any = std::bit_cast<double>(random());
        if (std::isfinite(any) && std::fabs(any) < 1e25) return any;
      }
  }
}

class AgainstIcu : public testing::TestWithParam<const char*> {
 protected:
  static std::string ByIcu(const icu::NumberFormat& format, double value) {
    const std::string digits = fmt::format("{:.14e}", value);
    UErrorCode status = U_ZERO_ERROR;
    icu::UnicodeString text;
    format.format(digits, text, nullptr, status);
    EXPECT_TRUE(U_SUCCESS(status)) << digits;
    std::string utf8;
    text.toUTF8String(utf8);
    return utf8;
  }

  static std::unique_ptr<icu::NumberFormat> IcuFormat(UNumberFormatStyle style) {
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::NumberFormat> format(
        icu::NumberFormat::createInstance(icu::Locale(GetParam()), style, status));
    EXPECT_TRUE(U_SUCCESS(status));
    if (style == UNUM_DECIMAL) {
      format->setMinimumFractionDigits(2);
      format->setMaximumFractionDigits(2);
    }
    format->setRoundingMode(icu::NumberFormat::kRoundHalfUp);
    return format;
  }
};

TEST_P(AgainstIcu, NumbersAndMoneyAreTheSame) {
  const auto locale = Locale::Get(GetParam());
  const auto number = IcuFormat(UNUM_DECIMAL);
  const auto money = IcuFormat(UNUM_CURRENCY);
  std::mt19937_64 random(20040331);
  for (int i = 0; i < kValues; ++i) {
    double value = RandomValue(random);
    // ICU keeps the sign of what rounds to zero; a report does not.
    if (std::fabs(value) < 0.005) value = std::fabs(value);
    ASSERT_EQ(locale->FormatNumber(value), ByIcu(*number, value)) << fmt::format("{}", value);
    ASSERT_EQ(locale->FormatCurrency(value), ByIcu(*money, value)) << fmt::format("{}", value);
  }
}

TEST_P(AgainstIcu, LongDatesAreTheSameOverAWholeCentury) {
  const auto locale = Locale::Get(GetParam());
  const std::unique_ptr<icu::DateFormat> format(
      icu::DateFormat::createDateInstance(icu::DateFormat::kFull, icu::Locale(GetParam())));
  format->setTimeZone(*icu::TimeZone::getGMT());
  constexpr double kSerialOf1970 = 25569;
  for (double serial = 20000; serial < 56500; serial += 1) {
    icu::UnicodeString text;
    format->format((serial - kSerialOf1970) * 86'400'000.0, text);
    std::string utf8;
    text.toUTF8String(utf8);
    ASSERT_EQ(locale->FormatLongDate(Date(serial)), utf8);
  }
}

INSTANTIATE_TEST_SUITE_P(Locales, AgainstIcu,
                         testing::Values("en_IN", "en_US", "en_GB", "de_DE", "fr_FR"),
                         [](const auto& locale) { return std::string(locale.param); });

}  // namespace
}  // namespace pstolvane1
