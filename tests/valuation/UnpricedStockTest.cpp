// What stock without a price takes from the standard costs.
#include <gtest/gtest.h>
#include <vector>

#include "tests/valuation/Money.h"
#include "valuation/UnpricedStock.h"

namespace pstolvane1 {
namespace {

const StockPeriod kYear{Date::FromYmd(2003, 4, 1), Date::FromYmd(2004, 3, 31)};
const UnpricedYear kFirstYear{.period = kYear, .carried_year = {}};

UnpricedYear Carried(std::int32_t year) { return {.period = kYear, .carried_year = year}; }

StandardRate Cost(double rate, Date from, Date to, std::int32_t year = 1) {
  return {.rate = rate, .from = from, .to = to, .year = year};
}

// 4 in stock before the period and 10 at its end, nothing of it priced.
StockFigures Unpriced() { return {.opening = {4, {}}, .closing = {10, {}}}; }

std::pair<Currency, Currency> Values(const std::vector<StandardRate>& costs,
                                     const UnpricedYear& year) {
  const StockFigures figures = ValueUnpricedStock(Unpriced(), costs, year);
  return {figures.opening.value, figures.closing.value};
}

const StandardRate kLongAgo = Cost(5, Date::FromYmd(2002, 4, 1), Date::FromYmd(2003, 3, 31));
const StandardRate kWithin = Cost(6, Date::FromYmd(2003, 7, 1), Date::FromYmd(2003, 12, 31));
const StandardRate kBeyond = Cost(7, Date::FromYmd(2004, 1, 1), Date::FromYmd(2004, 6, 30));

TEST(UnpricedStock, TakesTheLastCostThatCounts) {
  EXPECT_EQ(Values({kLongAgo, kWithin}, kFirstYear), std::pair(Rupees(20), Rupees(60)));
  EXPECT_EQ(Values({kLongAgo}, kFirstYear), std::pair(Rupees(20), Rupees(50)));
  EXPECT_EQ(Values({kWithin}, kFirstYear), std::pair(Rupees(0), Rupees(60)));
  EXPECT_EQ(Values({}, kFirstYear), std::pair(Rupees(0), Rupees(0)));
}

// A cost that runs beyond the last day has begun, but has not ended.
TEST(UnpricedStock, OnlyACarriedYearTakesACostThatRunsBeyondItsEnd) {
  EXPECT_EQ(Values({kLongAgo, kBeyond}, kFirstYear), std::pair(Rupees(20), Rupees(50)));
  EXPECT_EQ(Values({kLongAgo, kBeyond}, Carried(1)), std::pair(Rupees(20), Rupees(70)));
}

TEST(UnpricedStock, ACarriedYearKnowsNoCostOfLaterYears) {
  StandardRate later = kWithin;
  later.year = 2;
  EXPECT_EQ(Values({kLongAgo, later}, Carried(1)), std::pair(Rupees(20), Rupees(50)));
  EXPECT_EQ(Values({kLongAgo, later}, Carried(2)), std::pair(Rupees(20), Rupees(60)));
  EXPECT_EQ(Values({kLongAgo, later}, kFirstYear), std::pair(Rupees(20), Rupees(60)));
}

// The first day is no longer before the period; the last day still is within it.
TEST(UnpricedStock, TheDaysOfThePeriodAreBounds) {
  const StandardRate first = Cost(8, kYear.from, kYear.to);
  EXPECT_EQ(Values({first}, kFirstYear), std::pair(Rupees(0), Rupees(80)));
  const StandardRate last = Cost(9, kYear.to, Date::FromYmd(2005, 1, 1));
  EXPECT_EQ(Values({last}, Carried(1)), std::pair(Rupees(0), Rupees(90)));
  EXPECT_EQ(Values({last}, kFirstYear), std::pair(Rupees(0), Rupees(0)));
}

TEST(UnpricedStock, LeavesWhatHasAValueOrNoQuantity) {
  const StockFigures priced{.opening = {4, Rupees(1)}, .closing = {0, {}}};
  EXPECT_EQ(ValueUnpricedStock(priced, std::vector{kLongAgo}, kFirstYear), priced);
}

TEST(UnpricedStock, NegativeStockHasANegativeValue) {
  const StockFigures owed{.opening = {-4, {}}, .closing = {-10, {}}};
  const StockFigures valued = ValueUnpricedStock(owed, std::vector{kLongAgo}, kFirstYear);
  EXPECT_EQ(valued.opening.value, Rupees(-20));
  EXPECT_EQ(valued.closing.value, Rupees(-50));
}

}  // namespace
}  // namespace pstolvane1
