// The years of a stock key at the weighted average.
#include <gtest/gtest.h>
#include <vector>

#include "session/data/Error.h"
#include "tests/valuation/Money.h"
#include "tests/valuation/MovedLines.h"
#include "valuation/AverageYears.h"

namespace pstolvane1 {
namespace {

const StockPeriod kPeriod{Date::FromYmd(2004, 4, 1), Date::FromYmd(2005, 3, 31)};
// In force from before the period, and ended by its last day.
const std::vector<StandardRate> kCost{
    {.rate = 5, .from = Date::FromYmd(2003, 4, 1), .to = Date::FromYmd(2004, 9, 30), .year = 1}};

AverageYearSums Year(std::int32_t year, const std::vector<MovedLine>& lines) {
  AverageYearSums sums(year);
  for (const MovedLine& line : lines) sums.Add(line);
  return sums;
}

// Bought 10 at 6 and 10 at 8: the rate is 7, and what is sold leaves it so.
TEST(AverageYearSums, ValueWhatIsLeftAtTheAverageOfWhatCameIn) {
  const AverageYearSums year =
      Year(1, {Before(Bought(10, 6)), Bought(10, 8), Before(Sold(2, 9)), Sold(3, 12)});
  EXPECT_EQ(year.Opening().quantity, 8);
  EXPECT_EQ(year.Opening().value, Rupees(48));
  EXPECT_EQ(year.Closing().quantity, 15);
  EXPECT_EQ(year.Closing().value, Rupees(105));
  EXPECT_EQ(year.Closing().entering_quantity, 20);
  EXPECT_EQ(year.Closing().entering_value, Rupees(140));
  EXPECT_EQ(year.Inwards(), (StockFigure{10, Rupees(80)}));
  EXPECT_EQ(year.Outwards(), (StockFigure{3, Rupees(36)}));
}

TEST(AverageYearSums, TakeAnOutwardOpeningInWithItsSign) {
  const AverageYearSums year = Year(1, {Bought(10, 6), Owed(4, 9)});
  EXPECT_EQ(year.Closing().entering_quantity, 6);
  EXPECT_EQ(year.Closing().entering_value, Rupees(24));
  EXPECT_EQ(year.Closing().value, Rupees(24));
}

// 10 for 1 gives 3 at 0.3333 and not at a third.
TEST(AverageYearSums, RoundTheRateToMoneyBeforeItIsMultiplied) {
  const AverageYearSums year =
      Year(1, {Bought(3, 0),
               {.inward = true, .enters = true, .in_closing = true, .quantity = 0, .amount = 1}});
  EXPECT_EQ(year.Closing().value, Rupees(0.9999));
}

TEST(AverageYearSums, MakeANegativeStockWorthLessThanNothing) {
  EXPECT_EQ(Year(1, {Bought(4, 3), Sold(10, 9)}).Closing().value, Rupees(-18));
  EXPECT_EQ(Year(1, {Owed(4, 3)}).Closing().value, Rupees(-12));
}

TEST(AverageYearSums, PassOverWhatTheBooksDoNotTell) {
  const AverageYearSums year =
      Year(1, {Bought(10, 6), WithoutQuantity(Bought(1, 1)), WithoutRate(Bought(5, 1))});
  EXPECT_EQ(year.Closing().quantity, 15);
  EXPECT_EQ(year.Closing().value, Rupees(60));
}

TEST(AverageYearSums, TellWhichFigureIsBeyondItsRange) {
  try {
    (void)Year(1, {Bought(1e39, 0)}).Inwards();
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::kOverflow);
    EXPECT_STREQ(error.what(),
                 "while summing what came in: 1e+39 is beyond the range of a 32-bit float");
  }
  for (const double quantity : {1e39, -1e39}) {
    const AverageYearSums year = Year(1, {Owed(quantity, 0), Sold(quantity, 0)});
    EXPECT_THROW((void)year.Opening(), Error);
    EXPECT_THROW((void)year.Closing(), Error);
    EXPECT_THROW((void)year.Outwards(), Error);
  }
}

TEST(FirstYear, WithoutAPriceIsWorthItsLastCost) {
  const AverageYearSums owed = Year(1, {Before(Sold(10, 9)), Sold(2, 9)});
  const StockFigures figures = FiguresOfFirstYear(owed, kCost, kPeriod);
  EXPECT_EQ(figures.opening, (StockFigure{-10, Rupees(-50)}));
  EXPECT_EQ(figures.closing, (StockFigure{-12, Rupees(-60)}));
  EXPECT_EQ(figures.outwards, (StockFigure{2, Rupees(18)}));
  const StockFigures priced = FiguresOfFirstYear(Year(1, {Bought(10, 6)}), kCost, kPeriod);
  EXPECT_EQ(priced.closing, (StockFigure{10, Rupees(60)}));
}

// A carried year counts the costs that begin by the last day, the first year of the books those
// that end by it.
TEST(MergedYears, ValueTheirEarliestAtACostThatIsStillInForce) {
  std::vector<StandardRate> in_force = kCost;
  in_force.front().to = Date::FromYmd(2009, 3, 31);
  const std::vector<AverageYearSums> years{Year(1, {Sold(10, 9)})};
  EXPECT_EQ(mStock_MergeYears(years, in_force, kPeriod).closing, (StockFigure{-10, Rupees(-50)}));
  EXPECT_EQ(FiguresOfFirstYear(years.front(), in_force, kPeriod).closing, (StockFigure{-10, {}}));
}

// 15 at 90 and a year in which 5 at 50 came give 20 at 140; what moved is the last year's.
TEST(MergedYears, CarryTheAverageOn) {
  const std::vector<AverageYearSums> years{Year(1, {Before(Bought(15, 6))}),
                                           Year(2, {Bought(5, 10), Sold(4, 20)})};
  const StockFigures figures = mStock_MergeYears(years, kCost, kPeriod);
  EXPECT_EQ(figures.opening, (StockFigure{15, Rupees(90)}));
  EXPECT_EQ(figures.closing, (StockFigure{16, Rupees(112)}));
  EXPECT_EQ(figures.inwards, (StockFigure{5, Rupees(50)}));
  EXPECT_EQ(figures.outwards, (StockFigure{4, Rupees(80)}));
}

TEST(MergedYears, OfAKeyThatRestsInItsLastYearShowNoMovement) {
  const std::vector<AverageYearSums> years{Year(1, {Bought(5, 10)}), Year(2, {})};
  const StockFigures figures = mStock_MergeYears(years, kCost, kPeriod);
  EXPECT_EQ(figures.inwards, StockFigure());
  EXPECT_EQ(figures.closing, (StockFigure{5, Rupees(50)}));
}

}  // namespace
}  // namespace pstolvane1
