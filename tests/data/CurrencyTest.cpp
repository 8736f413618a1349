#include <cmath>
#include <limits>
#include <random>

#include "session/data/Currency.h"
#include "tests/data/ExpectError.h"

namespace pstolvane1 {
namespace {

constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();

std::int64_t UnitsOf(double value) { return Currency::FromDouble(value).TenThousandths(); }
std::int64_t UnitsOf(std::string_view text) { return Currency::FromText(text).TenThousandths(); }
std::string TextOfUnits(std::int64_t units) { return Currency::FromTenThousandths(units).ToText(); }

TEST(Currency, HoldsTenThousandths) {
  EXPECT_EQ(Currency().TenThousandths(), 0);
  EXPECT_EQ(Currency::FromTenThousandths(12345).ToDouble(), 1.2345);
}

TEST(Currency, RoundsADoubleHalfToEvenAtTheFourthDecimal) {
  EXPECT_EQ(UnitsOf(1.5), 15000);
  EXPECT_EQ(UnitsOf(0.03125), 312);  // 312.5 units
  EXPECT_EQ(UnitsOf(0.09375), 938);  // 937.5 units
  EXPECT_EQ(UnitsOf(-0.03125), -312);
  EXPECT_EQ(UnitsOf(-0.09375), -938);
  EXPECT_EQ(UnitsOf(0.00015), 1);  // in double 1.4999999999999998 units
  EXPECT_EQ(UnitsOf(100.0 / 3.0), 333333);
  EXPECT_EQ(UnitsOf(-0.0), 0);
}

TEST(Currency, RefusesADoubleBeyondItsRange) {
  EXPECT_EQ(UnitsOf(-922337203685477.5808), kLeast);
  ExpectError(ErrorNumber::kOverflow, "922337203685477.6 is beyond the range of money",
              [] { (void)Currency::FromDouble(922337203685477.625); });
  ExpectError(ErrorNumber::kOverflow, "inf is beyond the range of money",
              [] { (void)Currency::FromDouble(std::numeric_limits<double>::infinity()); });
  ExpectError(ErrorNumber::kOverflow, "nan is beyond the range of money", [] {
    (void)Currency::FromDouble(std::abs(std::numeric_limits<double>::quiet_NaN()));
  });
}

TEST(Currency, ReadsTextWithUpToFourDecimals) {
  EXPECT_EQ(UnitsOf("-1234.5"), -12345000);
  EXPECT_EQ(UnitsOf("0.0001"), 1);
  EXPECT_EQ(UnitsOf("-0.0500"), -500);
  EXPECT_EQ(UnitsOf("007"), 70000);
  EXPECT_EQ(UnitsOf("922337203685477.5807"), kMost);
  EXPECT_EQ(UnitsOf("-922337203685477.5808"), kLeast);
}

TEST(Currency, RefusesTextThatIsNotMoney) {
  for (const char* text :
       {"", "-", ".", "1,000", "1.23456", " 1", "1 ", "+1", "1e2", "12a", "--1"}) {
    ExpectError(
        ErrorNumber::kTypeMismatch,
        "\"" + std::string(text) + "\" is not an amount of money with at most four decimals",
        [&] { (void)Currency::FromText(text); });
  }
  ExpectError(ErrorNumber::kOverflow, "922337203685477.5808 is beyond the range of money",
              [] { (void)Currency::FromText("922337203685477.5808"); });
  ExpectError(ErrorNumber::kOverflow, "-922337203685477.5809 is beyond the range of money",
              [] { (void)Currency::FromText("-922337203685477.5809"); });
}

TEST(Currency, WritesFourDecimals) {
  EXPECT_EQ(TextOfUnits(0), "0.0000");
  EXPECT_EQ(TextOfUnits(-500), "-0.0500");
  EXPECT_EQ(TextOfUnits(123456789), "12345.6789");
  EXPECT_EQ(TextOfUnits(kMost), "922337203685477.5807");
  EXPECT_EQ(TextOfUnits(kLeast), "-922337203685477.5808");
}

TEST(Currency, RaisesOverflowInsteadOfWrapping) {
  const Currency most = Currency::FromTenThousandths(kMost);
  const Currency least = Currency::FromTenThousandths(kLeast);
  const Currency unit = Currency::FromTenThousandths(1);
  EXPECT_EQ((most - unit + unit).TenThousandths(), kMost);
  ExpectError(ErrorNumber::kOverflow,
              "the sum of 922337203685477.5807 and 0.0001 is beyond the range of money",
              [&] { (void)(most + unit); });
  ExpectError(ErrorNumber::kOverflow,
              "the difference of -922337203685477.5808 and 0.0001 is beyond the range of money",
              [&] { (void)(least - unit); });
  ExpectError(ErrorNumber::kOverflow,
              "the difference of 0.0000 and -922337203685477.5808 is beyond the range of money",
              [&] { (void)(-least); });
}

TEST(Currency, KeepsItsValueWhenASumOverflows) {
  Currency sum = Currency::FromTenThousandths(kMost);
  EXPECT_THROW(sum += Currency::FromTenThousandths(1), Error);
  EXPECT_EQ(sum.TenThousandths(), kMost);
}

TEST(Currency, StandsInOrder) {
  EXPECT_LT(Currency::FromDouble(-1), Currency::FromDouble(0.5));
  EXPECT_EQ(Currency::FromDouble(0.5), Currency::FromText("0.5"));
}

// Any split of an amount adds up to it again, in any order; text and double lead back to it.
TEST(CurrencyProperty, SumsAreExactAndTextReadsBack) {
  std::mt19937_64 random(20040331);
  std::uniform_int_distribution<std::int64_t> any(kLeast / 4, kMost / 4);
  std::uniform_int_distribution<std::int64_t> small(-100'000'000'000, 100'000'000'000);
  for (int i = 0; i < 20000; ++i) {
    const Currency a = Currency::FromTenThousandths(any(random));
    const Currency b = Currency::FromTenThousandths(any(random));
    EXPECT_EQ(a + b - b, a);
    EXPECT_EQ(a + b, b + a);
    EXPECT_EQ((a - b).TenThousandths(), a.TenThousandths() - b.TenThousandths());
    EXPECT_EQ(-(-a), a);
    EXPECT_EQ(Currency::FromText(a.ToText()), a);
    const Currency c = Currency::FromTenThousandths(small(random));
    EXPECT_EQ(Currency::FromDouble(c.ToDouble()), c);
  }
}

// The unit nearest to the double, and of two that are equally near the even one.
TEST(CurrencyProperty, FromDoubleTakesTheNearestUnit) {
  std::mt19937_64 random(7);
  std::uniform_real_distribution<double> any(-1e6, 1e6);
  for (int i = 0; i < 20000; ++i) {
    const double value = any(random);
    const double units = value * 10000.0;
    const auto got = static_cast<double>(UnitsOf(value));
    EXPECT_LE(std::abs(got - units), 0.5);
    if (std::abs(got - units) == 0.5) {
      EXPECT_EQ(std::fmod(got, 2.0), 0.0);
    }
  }
}

}  // namespace
}  // namespace pstolvane1
