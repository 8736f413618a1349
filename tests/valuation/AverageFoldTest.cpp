// The weighted average over the years of a stock key.
#include <gtest/gtest.h>
#include <random>

#include "tests/valuation/Money.h"
#include "valuation/AverageFold.h"

namespace pstolvane1 {
namespace {

TEST(AverageFold, AYearsStockEntersTheNextAsIfItWereBought) {
  AverageFold closing({15, Rupees(90)}, AverageBase::kRestartsEachYear);
  closing.AddYear(
      {.quantity = 5, .value = Rupees(50), .entering_quantity = 5, .entering_value = Rupees(50)});
  EXPECT_EQ(closing.Position(), (StockFigure{20, Rupees(140)}));
}

TEST(AverageFold, ASaleLeavesTheRateAsItWas) {
  AverageFold closing({15, Rupees(90)}, AverageBase::kRestartsEachYear);
  closing.AddYear({.quantity = -6, .value = {}, .entering_quantity = 0, .entering_value = {}});
  EXPECT_EQ(closing.Position(), (StockFigure{9, Rupees(54)}));
}

// Year 2 sells 10 of 20 at 7; year 3 buys 10 at 13. The closing base restarts at 10 worth 70, so
// that the rate becomes (70 + 130) / 20 = 10; the opening base still holds all 20 and their 140,
// (140 + 130) / 30 = 9.
TEST(AverageFold, OnlyTheClosingBaseRestartsEachYear) {
  const AverageYear sold{
      .quantity = -10, .value = {}, .entering_quantity = 0, .entering_value = {}};
  const AverageYear bought{
      .quantity = 10, .value = Rupees(130), .entering_quantity = 10, .entering_value = Rupees(130)};
  AverageFold closing({20, Rupees(140)}, AverageBase::kRestartsEachYear);
  AverageFold opening({20, Rupees(140)}, AverageBase::kSumsAllYears);
  for (AverageFold* side : {&closing, &opening}) {
    side->AddYear(sold);
    side->AddYear(bought);
  }
  EXPECT_EQ(closing.Position(), (StockFigure{20, Rupees(200)}));
  EXPECT_EQ(opening.Position(), (StockFigure{20, Rupees(180)}));
}

TEST(AverageFold, WithoutABaseTheValueStays) {
  AverageFold closing({0, Rupees(12)}, AverageBase::kSumsAllYears);
  closing.AddYear({.quantity = -3, .value = {}, .entering_quantity = 0, .entering_value = {}});
  // The base value of 12 has no quantity to stand on.
  EXPECT_EQ(closing.Position(), (StockFigure{-3, Rupees(12)}));
}

TEST(AverageFold, NegativeStockHasANegativeValueAtAPositiveRate) {
  AverageFold closing({4, Rupees(12)}, AverageBase::kRestartsEachYear);
  closing.AddYear({.quantity = -10, .value = {}, .entering_quantity = 0, .entering_value = {}});
  EXPECT_EQ(closing.Position(), (StockFigure{-6, Rupees(-18)}));
}

// With purchases alone the closing value is all that was paid, and the rate lies between the
// lowest and the highest that was paid.
TEST(AverageFold, OfRandomPurchasesKeepsTheirValue) {
  std::mt19937 random(11);
  std::uniform_int_distribution<int> quantity(1, 50), rate(1, 900);
  for (int i = 0; i < 10'000; ++i) {
    int lowest = 900, highest = 1;
    const auto buy = [&] {
      const int at = rate(random);
      lowest = std::min(lowest, at);
      highest = std::max(highest, at);
      const auto bought = static_cast<float>(quantity(random));
      return AverageYear{.quantity = bought,
                         .value = Rupees(static_cast<double>(bought) * at),
                         .entering_quantity = bought,
                         .entering_value = Rupees(static_cast<double>(bought) * at)};
    };
    const AverageYear first = buy();
    AverageFold closing({first.quantity, first.value}, AverageBase::kRestartsEachYear);
    Currency paid = first.value;
    for (int year = 2; year <= 4; ++year) {
      const AverageYear next = buy();
      paid += next.value;
      closing.AddYear(next);
    }
    EXPECT_NEAR(closing.Position().value.ToDouble(), paid.ToDouble(), 0.0002);
    EXPECT_GE(RateOf(closing.Position()), lowest - 0.0001);
    EXPECT_LE(RateOf(closing.Position()), highest + 0.0001);
  }
}

}  // namespace
}  // namespace pstolvane1
