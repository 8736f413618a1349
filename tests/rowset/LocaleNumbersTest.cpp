#include <cmath>
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <string>

#include "session/data/Error.h"
#include "session/rowset/Locale.h"
#include "tests/rowset/India.h"

namespace pstolvane1 {
namespace {

TEST(LocaleNumbers, GroupsInIndiaAreThreeThenTwo) {
  EXPECT_EQ(India().FormatNumber(1234567.89), "12,34,567.89");
  EXPECT_EQ(India().FormatNumber(-1234567.89), "-12,34,567.89");
  EXPECT_EQ(India().FormatNumber(999.5), "999.50");
  EXPECT_EQ(India().FormatNumber(1000), "1,000.00");
  EXPECT_EQ(India().FormatNumber(0), "0.00");
}

TEST(LocaleNumbers, HalvesRoundAwayFromZero) {
  EXPECT_EQ(India().FormatNumber(0.125), "0.13");
  EXPECT_EQ(India().FormatNumber(-0.125), "-0.13");
  EXPECT_EQ(India().FormatNumber(999.995), "1,000.00");
}

TEST(LocaleNumbers, FifteenSignificantDigitsDecideWhatAHalfIs) {
  EXPECT_EQ(India().FormatNumber(2.675), "2.68");  // stored as 2.67499999999999982...
  EXPECT_EQ(India().FormatNumber(1.005), "1.01");
}

// Ten-thousandths, rounded by whole-number arithmetic and written without groups.
std::string Rounded(std::int64_t ten_thousandths) {
  const std::int64_t hundredths = (std::abs(ten_thousandths) + 50) / 100;
  const std::string sign = ten_thousandths < 0 && hundredths != 0 ? "-" : "";
  const std::string cents = std::to_string(100 + hundredths % 100).substr(1);
  return sign + std::to_string(hundredths / 100) + "." + cents;
}

TEST(LocaleNumbers, EveryAmountOfFourPlacesIsRoundedFromItsDecimal) {
  std::mt19937_64 random(7);
  const auto check = [](std::int64_t ten_thousandths) {
    std::string text = India().FormatNumber(static_cast<double>(ten_thousandths) / 1e4);
    std::erase(text, ',');
    EXPECT_EQ(text, Rounded(ten_thousandths)) << ten_thousandths;
  };
  for (std::int64_t n = -20'100; n <= 20'100; ++n) check(n);
  for (std::int64_t limit = 10; limit < 1'000'000'000'000'000; limit *= 10) {
    std::uniform_int_distribution<std::int64_t> amounts(-limit, limit);
    for (int i = 0; i < 500; ++i) check(amounts(random));
    for (const std::int64_t near : {limit - 1, limit, limit - 50, limit - 51}) check(near);
  }
}

TEST(LocaleNumbers, WhatRoundsToZeroHasNoSign) {
  EXPECT_EQ(India().FormatNumber(-0.004), "0.00");
  EXPECT_EQ(India().FormatNumber(-0.0), "0.00");
  EXPECT_EQ(India().FormatNumber(1e-300), "0.00");
}

TEST(LocaleNumbers, LargeNumbersAreZerosBehindFifteenDigits) {
  EXPECT_EQ(Locale::Get("en_US")->FormatNumber(1e18), "1,000,000,000,000,000,000.00");
  EXPECT_EQ(Locale::Get("en_US")->FormatNumber(123456789012345678.0), "123,456,789,012,346,000.00");
}

TEST(LocaleNumbers, WhatIsNotFiniteIsAnOverflow) {
  for (const double value :
       {std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
    try {
      static_cast<void>(India().FormatNumber(value));
      ADD_FAILURE() << value;
    } catch (const Error& error) {
      EXPECT_EQ(error.Number(), ErrorNumber::kOverflow);
    }
  }
}

TEST(LocaleNumbers, MoneyHasTheLocalesSymbolSeparatorsAndNegativeForm) {
  const Currency money = Currency::FromTenThousandths(-12345678900);
  EXPECT_EQ(India().FormatCurrency(money), "-₹12,34,567.89");
  EXPECT_EQ(Locale::Get("en_US")->FormatCurrency(money), "-$1,234,567.89");
  EXPECT_EQ(Locale::Get("en_GB")->FormatCurrency(money), "-£1,234,567.89");
  EXPECT_EQ(Locale::Get("de_DE")->FormatCurrency(money), "-1.234.567,89\u00a0€");
  EXPECT_EQ(Locale::Get("fr_FR")->FormatCurrency(money), "-1\u202f234\u202f567,89\u00a0€");
  EXPECT_EQ(Locale::Get("ja_JP")->FormatCurrency(1234.5), "￥1,235");
}

// The reader's locale gives the form, the books' currency the symbol.
TEST(LocaleNumbers, MoneyIsInTheCurrencyThatIsNamed) {
  const Currency money = Currency::FromTenThousandths(-12345678900);
  EXPECT_EQ(Locale::Get("de_DE@currency=INR")->FormatCurrency(money), "-1.234.567,89\u00a0₹");
  EXPECT_EQ(Locale::Get("de_DE.UTF-8@currency=inr")->FormatCurrency(money), "-1.234.567,89\u00a0₹");
  EXPECT_EQ(Locale::Get("en_IN@currency=USD")->FormatCurrency(money), "-$12,34,567.89");
  EXPECT_EQ(Locale::Get("C@currency=EUR")->FormatCurrency(money), "-€12,34,567.89");
  EXPECT_EQ(Locale::Get("de_DE@currency=INR")->FormatNumber(1234.5), "1.234,50");
  EXPECT_EQ(Locale::Get("de_DE@currency=INR")->Name(), "de_DE");
}

TEST(LocaleNumbers, ANamedCurrencyKeepsThePaise) {
  EXPECT_EQ(Locale::Get("ja_JP@currency=INR")->FormatCurrency(1234.5), "₹1,234.50");
  EXPECT_EQ(Locale::Get("en_IN@currency=JPY")->FormatCurrency(1234.5), "JP¥1,234.50");
  EXPECT_EQ(Locale::Get("en_IN@currency=KWD")->FormatCurrency(1234.5), "KWD1,234.500");
}

TEST(LocaleNumbers, AnUnknownCurrencyIsAnError) {
  for (const char* name : {"de_DE@currency=RUPEES", "de_DE@currency=XQZ", "@currency=12"}) {
    try {
      static_cast<void>(Locale::Get(name));
      ADD_FAILURE() << name;
    } catch (const Error& error) {
      EXPECT_EQ(error.Number(), ErrorNumber::kArgumentOutOfRange);
      EXPECT_NE(error.Description().find("there is no currency"), std::string::npos) << name;
    }
  }
}

TEST(LocaleNumbers, SomeLocalesGroupOnlyFromFiveDigitsOn) {
  EXPECT_EQ(Locale::Get("pl_PL")->FormatNumber(1234.5), "1234,50");
  EXPECT_EQ(Locale::Get("pl_PL")->FormatNumber(12345.5), "12\u00a0345,50");
}

TEST(LocaleNumbers, ALocaleWithDigitsOfItsOwnUsesThem) {
  EXPECT_EQ(Locale::Get("mr_IN")->FormatNumber(1234567.89), "१२,३४,५६७.८९");
}

TEST(LocaleNumbers, ThePlainPlatformLocaleIsIndia) {
  EXPECT_EQ(Locale::Get("C")->Name(), "en_IN");
  EXPECT_EQ(Locale::Get("POSIX")->Name(), "en_IN");
  EXPECT_EQ(Locale::Get("C.UTF-8")->Name(), "en_IN");
  EXPECT_EQ(Locale::Get("fr_FR.UTF-8")->Name(), "fr_FR");
}

TEST(LocaleNumbers, ATextOfItsOwnReadsBack) {
  for (const char* name : {"en_IN", "en_US", "de_DE", "fr_FR", "mr_IN", "pl_PL"}) {
    const auto locale = Locale::Get(name);
    for (const double value : {0.0, 12.5, -12.5, 1234567.89, -1234567.89, 99999.99}) {
      EXPECT_EQ(locale->ReadNumber(locale->FormatNumber(value)), value) << name;
      EXPECT_EQ(locale->ReadCurrency(locale->FormatCurrency(value)), value) << name;
    }
  }
}

TEST(LocaleNumbers, AnyOtherTextIsNoNumber) {
  for (const char* text :
       {"", "12", "1,2.00", "12.00 Nos", "12,34,567.8", "A12.00", "--1.00", "1.0.0"}) {
    EXPECT_EQ(India().ReadNumber(text), std::nullopt) << text;
  }
  EXPECT_EQ(India().ReadCurrency("12.00"), std::nullopt);
}

TEST(LocaleNumbers, AnUnknownLocaleIsRefusedByName) {
  try {
    static_cast<void>(Locale::Get("qq_QQ"));
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::kArgumentOutOfRange);
    EXPECT_EQ(error.Description(), "no number and date formats are known for the locale \"qq_QQ\"");
  }
}

}  // namespace
}  // namespace pstolvane1
