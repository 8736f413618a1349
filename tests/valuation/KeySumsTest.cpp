// What a stock key's lines come to.
#include <algorithm>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <vector>

#include "session/data/Error.h"
#include "tests/valuation/Money.h"
#include "tests/valuation/MovedLines.h"
#include "valuation/KeySums.h"

namespace pstolvane1 {
namespace {

KeyQuantities SumsOf(const std::vector<MovedLine>& lines) {
  KeySums sums;
  for (const MovedLine& line : lines) sums.Add(line);
  return sums.Quantities();
}

void ExpectError(ErrorNumber number, const std::string& text, const std::vector<MovedLine>& lines) {
  try {
    (void)SumsOf(lines);
    FAIL() << text;
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), number);
    EXPECT_STREQ(error.what(), text.c_str());
  }
}

TEST(KeySums, EachLineCountsInTheOpeningOrInWhatMoved) {
  const KeyQuantities sums = SumsOf({Before(Bought(10, 5)), Before(Sold(3, 8)), Owed(2, 5),
                                     Bought(4, 6), Bought(1, 7), Sold(2, 9)});
  EXPECT_EQ(sums.opening, 5);
  EXPECT_EQ(sums.inwards, (StockFigure{5, Rupees(31)}));
  EXPECT_EQ(sums.outwards, (StockFigure{2, Rupees(18)}));
  EXPECT_EQ(sums.closing, 8);
}

TEST(KeySums, WithoutALineAreNothing) {
  const KeyQuantities sums = SumsOf({});
  EXPECT_EQ(sums.opening, 0);
  EXPECT_EQ(sums.closing, 0);
  EXPECT_EQ(sums.inwards, StockFigure());
  EXPECT_EQ(sums.outwards, StockFigure());
}

TEST(KeySums, ALineWithoutAQuantityIsNothingBesideOthers) {
  const KeyQuantities sums = SumsOf({WithoutQuantity(Bought(10, 5)), WithoutRate(Bought(4, 6)),
                                     Sold(1, 9), WithoutQuantity(Owed(1, 1))});
  EXPECT_EQ(sums.opening, 0);
  EXPECT_EQ(sums.inwards, (StockFigure{4, {}}));
  EXPECT_EQ(sums.closing, 3);
}

TEST(KeySums, AFigureOfWhichNoLineTellsAnythingIsAnError) {
  ExpectError(ErrorNumber::kInvalidUseOfNull,
              "while summing the opening: the quantity of every line is Null",
              {WithoutQuantity(Before(Bought(10, 5)))});
  ExpectError(ErrorNumber::kInvalidUseOfNull,
              "while summing what came in: the amount of every line is Null",
              {WithoutRate(Bought(10, 5))});
  ExpectError(ErrorNumber::kInvalidUseOfNull,
              "while summing what went out: the quantity of every line is Null",
              {WithoutQuantity(Sold(10, 5))});
}

TEST(KeySums, AQuantityBeyondASingleIsAnOverflow) {
  ExpectError(ErrorNumber::kOverflow,
              "while summing what came in: 1e+39 is beyond the range of a 32-bit float",
              {Bought(1e39, 0)});
}

TEST(KeySums, AQuantityThatIsNoNumberIsAnOverflow) {
  ExpectError(ErrorNumber::kOverflow, "while summing what came in: a quantity is out of range",
              {Bought(std::numeric_limits<double>::infinity(), 0)});
}

TEST(KeySums, FractionsThatCancelLeaveNothing) {
  EXPECT_EQ(SumsOf({Before(Bought(0.1, 1)), Before(Bought(0.2, 1)), Before(Sold(0.3, 1))}).opening,
            0);
}

TEST(KeySums, DoNotDependOnTheOrderOfTheLines) {
  std::mt19937 random(7);
  std::uniform_int_distribution<int> of(0, 4), hundredths(1, 100'000);
  for (int round = 0; round < 500; ++round) {
    std::vector<MovedLine> lines;
    for (int i = 0; i < 20; ++i) {
      const double quantity = hundredths(random) / 100.0;
      const double rate = hundredths(random) / 100.0;
      const MovedLine kinds[] = {Bought(quantity, rate), Sold(quantity, rate),
                                 Before(Bought(quantity, rate)), Before(Sold(quantity, rate)),
                                 Owed(quantity, rate)};
      lines.push_back(kinds[of(random)]);
    }
    const KeyQuantities sums = SumsOf(lines);
    std::ranges::shuffle(lines, random);
    const KeyQuantities shuffled = SumsOf(lines);
    EXPECT_EQ(shuffled.opening, sums.opening);
    EXPECT_EQ(shuffled.inwards, sums.inwards);
    EXPECT_EQ(shuffled.outwards, sums.outwards);
  }
}

}  // namespace
}  // namespace pstolvane1
