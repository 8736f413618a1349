// What layers are reckoned from, made of the lines of the books.
#include <gtest/gtest.h>
#include <vector>

#include "session/data/Error.h"
#include "tests/valuation/Money.h"
#include "valuation/LayerLines.h"

namespace pstolvane1 {
namespace {

using Kind = StockLine::Kind;
using Sale = StockLine::Sale;

StockLine Line(Kind kind, double quantity, double rate) {
  return {.kind = kind,
          .year = 1,
          .quantity = quantity,
          .amount = quantity * rate,
          .rate = rate,
          .value = Rupees(quantity * rate)};
}
StockLine InYear(int year, bool in_period, StockLine line) {
  line.year = year;
  line.in_period = in_period;
  return line;
}
StockLine Sold(Sale sale, double quantity) {
  StockLine line = Line(Kind::kOutward, quantity, 1);
  line.sale = sale;
  return line;
}

TEST(LayerLines, AnInwardLineIsALayerAndAnOutwardOneIsNone) {
  const LayerLine in = AsLayer(Line(Kind::kInward, 10, 5));
  EXPECT_EQ(in.in, 10);
  EXPECT_EQ(in.value_in, Rupees(50));
  EXPECT_EQ(in.out, 0);
  const LayerLine out = AsLayer(Line(Kind::kOutward, 4, 9));
  EXPECT_EQ(out.in, 0);
  EXPECT_EQ(out.out, 4);
  EXPECT_EQ(out.value_out, Rupees(36));
  EXPECT_EQ(out.rate, 9);
}

TEST(LayerLines, AnOutwardOpeningLineIsANegativeLayer) {
  const LayerLine line = AsLayer(Line(Kind::kOutwardOpening, 3, 5));
  EXPECT_EQ(line.in, -3);
  EXPECT_EQ(line.value_in, Rupees(-15));
  EXPECT_EQ(line.out, 0);
}

TEST(LayerLines, ALineThatIsNeitherKeepsItsRateAlone) {
  const LayerLine line = AsLayer(Line(Kind::kNothing, 3, 5));
  EXPECT_EQ(line.in, 0);
  EXPECT_EQ(line.out, 0);
  EXPECT_EQ(line.value_in, Currency());
  EXPECT_EQ(line.rate, 5);
}

TEST(LayerLines, AQuantityBeyondASingleIsAnOverflow) {
  EXPECT_THROW((void)AsLayer(Line(Kind::kInward, 1e39, 0)), Error);
}

TEST(LayerLines, SalesAreSummedApart) {
  StockLine opening = Line(Kind::kOutwardOpening, 2, 1);  // with a date
  opening.sale = Sale::kWithin;
  const LayerSales sales = SumSales(
      std::vector<StockLine>{Sold(Sale::kBefore, 4), Sold(Sale::kWithin, 1),
                             Sold(Sale::kBefore, 0.5), opening, Line(Kind::kInward, 100, 1)});
  EXPECT_EQ(sales.before, 4.5F);
  EXPECT_EQ(sales.within, 3);
}

// 0.1 ten times over is 1, as the engines' sums are.
TEST(LayerLines, SalesAreRoundedAsTheEnginesRound) {
  EXPECT_EQ(SumSales(std::vector<StockLine>(10, Sold(Sale::kBefore, 0.1))).before, 1);
  EXPECT_EQ(SumSales({}).before, 0);
}

TEST(LayerLines, YearsAreSummedInTheirOrderThePeriodApart) {
  const std::vector<LayerYear> years = SumYears(std::vector<StockLine>{
      InYear(2, true, Line(Kind::kInward, 5, 10)), InYear(2, false, Line(Kind::kOutward, 3, 20)),
      InYear(1, false, Line(Kind::kInward, 10, 4)),
      InYear(1, false, Line(Kind::kOutwardOpening, 2, 4)),
      InYear(2, true, Line(Kind::kInward, 1, 10))});
  ASSERT_EQ(years.size(), 3U);
  EXPECT_EQ(years[0].in, 8);
  EXPECT_EQ(years[0].value_in, Rupees(32));
  EXPECT_EQ(years[0].out, 0);
  EXPECT_FALSE(years[0].in_period);
  EXPECT_EQ(years[1].in, 0);
  EXPECT_EQ(years[1].out, 3);
  EXPECT_FALSE(years[1].in_period);
  EXPECT_EQ(years[2].in, 6);
  EXPECT_EQ(years[2].value_in, Rupees(60));
  EXPECT_TRUE(years[2].in_period);
}

// The carried average is rounded in each year that has a row.
TEST(LayerLines, AYearOfLinesThatAreNeitherIsAYear) {
  EXPECT_EQ(SumYears(std::vector<StockLine>{Line(Kind::kNothing, 1, 1)}).size(), 1U);
  EXPECT_TRUE(SumYears({}).empty());
}

}  // namespace
}  // namespace pstolvane1
