// Gross profit, consumption and percentage of a stock line.
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

#include "session/data/Error.h"
#include "tests/valuation/Money.h"

namespace pstolvane1 {
namespace {

StockFigures Values(double opening, double inwards, double outwards, double closing) {
  return {.opening = {0, Rupees(opening)},
          .inwards = {0, Rupees(inwards)},
          .outwards = {0, Rupees(outwards)},
          .closing = {0, Rupees(closing)}};
}

ErrorNumber NumberOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const Error& error) {
    return error.Number();
  }
  return {};
}

TEST(StockProfit, OfOpening100Inwards500Outwards450Closing300) {
  const StockProfit profit = ReckonStockProfit(Values(100, 500, 450, 300));
  EXPECT_EQ(profit.balance, Rupees(-150));
  EXPECT_EQ(profit.GrossProfit(), Rupees(150));
  EXPECT_EQ(profit.consumption, Rupees(300));
  EXPECT_EQ(profit.percent, Rupees(-50));
}

TEST(StockProfit, WithoutSalesAndAChangeInValueThereIsNone) {
  const StockProfit profit = ReckonStockProfit(Values(250, 0, 0, 250));
  EXPECT_EQ(profit.balance, Currency());
  EXPECT_EQ(profit.consumption, Currency());
}

TEST(StockProfit, SalesWithoutACostGiveMinusOneHundredPercentOnDisplay) {
  const StockProfit profit = ReckonStockProfit(Values(0, 0, 100, 0));
  EXPECT_EQ(profit.balance, Rupees(-100));
  EXPECT_EQ(profit.GrossProfit(), Rupees(100));
  EXPECT_EQ(profit.consumption, Currency());
  EXPECT_EQ(profit.percent, Rupees(100));
}

TEST(StockProfit, SalesAtCostHaveAConsumptionAndNoProfit) {
  const StockProfit profit = ReckonStockProfit(Values(100, 0, 40, 60));
  EXPECT_EQ(profit.balance, Currency());
  EXPECT_EQ(profit.consumption, Rupees(40));
}

TEST(StockProfit, AGainInValueWithoutSalesShowsItsConsumptionWithoutASign) {
  const StockProfit profit = ReckonStockProfit(Values(100, 0, 0, 130));
  EXPECT_EQ(profit.balance, Rupees(-30));
  EXPECT_EQ(profit.consumption, Rupees(30));
  EXPECT_EQ(profit.percent, Rupees(100));
}

// Opening and purchases are what was sold at cost, and what is left.
TEST(StockProfit, TheTradingAccountBalancesOnRandomLines) {
  std::mt19937 random(7);
  std::uniform_int_distribution<std::int64_t> amount(-9'000'000, 9'000'000);
  for (int i = 0; i < 100'000; ++i) {
    StockFigures figures;
    for (StockFigure* side :
         {&figures.opening, &figures.inwards, &figures.outwards, &figures.closing}) {
      side->value = Currency::FromTenThousandths(amount(random));
    }
    const StockProfit profit = ReckonStockProfit(figures);
    const Currency cost = figures.opening.value + figures.inwards.value - figures.closing.value;
    EXPECT_EQ(figures.outwards.value - profit.GrossProfit(), cost);
    EXPECT_EQ(std::abs(profit.consumption.TenThousandths()), std::abs(cost.TenThousandths()));
  }
}

TEST(StockFigures, OutOfRangeIsAnError) {
  const Currency most = Currency::FromTenThousandths(std::numeric_limits<std::int64_t>::max());
  EXPECT_EQ(NumberOf([&] {
              (void)ReckonStockProfit({.opening = {0, most}, .inwards = {0, most}});
            }),
            ErrorNumber::kOverflow);
  EXPECT_EQ(NumberOf([] { (void)ToSingle(1e39); }), ErrorNumber::kOverflow);
  EXPECT_EQ(NumberOf([] { (void)ValueAt(1e15, 1000); }), ErrorNumber::kOverflow);
  EXPECT_EQ(NumberOf([] { (void)Quotient(1, 0, ""); }), ErrorNumber::kDivisionByZero);
}

TEST(StockFigures, RatesHaveNoSign) {
  EXPECT_DOUBLE_EQ(RateOf({-4, Rupees(-12)}), 3);
  EXPECT_DOUBLE_EQ(RateOf({-4, Rupees(12)}), 3);
}

}  // namespace
}  // namespace pstolvane1
