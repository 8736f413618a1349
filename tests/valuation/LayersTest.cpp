// Stock in layers, first in first out and last in first out.
#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <random>
#include <vector>

#include "session/data/Error.h"
#include "tests/valuation/Money.h"
#include "valuation/Layers.h"

namespace pstolvane1 {
namespace {

enum When { kBefore, kWithin };

LayerLine In(double quantity, double rate, When when = kWithin) {
  return {.in = static_cast<float>(quantity),
          .value_in = Rupees(quantity * rate),
          .rate = rate,
          .in_period = when == kWithin};
}
LayerLine Out(double quantity, double rate, When when = kWithin) {
  return {.out = static_cast<float>(quantity),
          .value_out = Rupees(quantity * rate),
          .rate = rate,
          .in_period = when == kWithin};
}

// The lines stand oldest first; LIFO walks them from the other end.
StockFigures Walk(enmValuationMethod method, std::vector<LayerLine> lines,
                  const std::vector<LayerYear>& years = {}) {
  LayerSales sales;
  for (const LayerLine& line : lines) (line.in_period ? sales.within : sales.before) += line.out;
  if (method == LifoRate) std::reverse(lines.begin(), lines.end());
  return WalkLayers(lines, sales, method, [&] { return std::span(years); });
}

TEST(Layers, FifoLeavesTheNewest) {
  const StockFigures figures = Walk(FifoRate, {In(10, 5), In(10, 7), Out(15, 9)});
  EXPECT_EQ(figures.closing, (StockFigure{5, Rupees(35)}));
  EXPECT_EQ(figures.inwards, (StockFigure{20, Rupees(120)}));
  EXPECT_EQ(figures.outwards, (StockFigure{15, Rupees(135)}));
}

TEST(Layers, LifoLeavesTheOldest) {
  EXPECT_EQ(Walk(LifoRate, {In(10, 5), In(10, 7), Out(15, 9)}).closing,
            (StockFigure{5, Rupees(25)}));
}

TEST(Layers, SalesThatJustEqualALayerLeaveTheOthersWhole) {
  EXPECT_EQ(Walk(FifoRate, {In(10, 5), In(10, 7), Out(10, 9)}).closing,
            (StockFigure{10, Rupees(70)}));
}

TEST(Layers, WithoutSalesAllCountWhole) {
  EXPECT_EQ(Walk(LifoRate, {In(10, 5), In(10, 7)}).closing, (StockFigure{20, Rupees(120)}));
}

// Sold 4; the opening layer of -3 makes that 7, so that 3 of the 10 at 5 remain.
TEST(Layers, ANegativeOpeningLayerRaisesTheSales) {
  const StockFigures figures = Walk(FifoRate, {In(-3, 2, kBefore), In(10, 5), Out(4, 9)});
  EXPECT_EQ(figures.opening, (StockFigure{-3, Rupees(-6)}));
  EXPECT_EQ(figures.closing.value, Rupees(15));
}

TEST(Layers, TheOpeningIsWhatTheSalesBeforeThePeriodLeave) {
  const StockFigures figures =
      Walk(LifoRate, {In(10, 5, kBefore), In(10, 7, kBefore), Out(12, 9, kBefore), In(1, 8)});
  EXPECT_EQ(figures.opening, (StockFigure{8, Rupees(40)}));
  // The purchase of the period is the first that the sales before it consume.
  EXPECT_EQ(figures.closing, (StockFigure{9, Rupees(45)}));
}

TEST(Layers, FifoCountsTheOpeningTwiceInItsClosingQuantityAndLifoDoesNot) {
  const std::vector<LayerLine> lines = {In(10, 5, kBefore), In(4, 6), Out(3, 9)};
  EXPECT_EQ(Walk(FifoRate, lines).closing.quantity, 10 + 10 + 4 - 3);
  EXPECT_EQ(Walk(LifoRate, lines).closing.quantity, 10 + 4 - 3);
}

// 5 at 4 and then 9 sold: nothing is left to walk, so the yearly average gives -4 at 4.
TEST(Layers, SoldBeyondTheLayersTheYearlyAverageValuesTheDeficit) {
  const StockFigures figures =
      Walk(LifoRate, {In(5, 4), Out(9, 9)},
           {{.in = 5, .out = 9, .value_in = Rupees(20), .in_period = true}});
  EXPECT_EQ(figures.closing, (StockFigure{-4, Rupees(-16)}));
}

TEST(Layers, SoldBeyondTheLayersBeforeThePeriodTheOpeningTakesTheYearlyAverageOfItsBook) {
  const StockFigures figures =
      Walk(LifoRate, {In(5, 4, kBefore), Out(9, 9, kBefore), In(1, 6)},
           {{.in = 5, .out = 9, .value_in = Rupees(20), .in_period = false},
            {.in = 1, .out = 0, .value_in = Rupees(6), .in_period = true}});
  EXPECT_EQ(figures.opening, (StockFigure{-4, Rupees(-16)}));
  // -4 at -16 and 1 at 6 are -3 at |(-16 + 6) / -3| = 3.3333.
  EXPECT_EQ(figures.closing, (StockFigure{-3, Rupees(-9.9999)}));
}

TEST(Layers, AQuantityOfNothingInAYearEmptiesTheYearlyAverage) {
  const std::vector<LayerYear> years = {
      {.in = 4, .out = 4, .value_in = Rupees(8), .in_period = false},
      {.in = 0, .out = 2, .value_in = {}, .in_period = true}};
  EXPECT_EQ(StockYearlyAverageValue(years, false), Currency());
  EXPECT_EQ(StockYearlyAverageValue(years, true), Currency());
}

// -2 worth -4 and the 2 that come in cancel each other out: what is sold then has no rate.
TEST(Layers, AQuantityOfNothingTakesTheValueAway) {
  const std::vector<LayerYear> years = {
      {.in = 4, .out = 6, .value_in = Rupees(8), .in_period = false},
      {.in = 2, .out = 1, .value_in = Rupees(10), .in_period = true}};
  EXPECT_EQ(StockYearlyAverageValue(years, true), Rupees(-4));
  EXPECT_EQ(StockYearlyAverageValue(years, false), Currency());
}

// 1 and the negative layer's 3 are 4 to sell, and 1 of the 5 at 5 is left; but FIFO's quantity is
// -2, and below 0 the yearly average decides: (-6 + 25) / 2 = 9.5 for the 1 that it has.
TEST(Layers, BelowNothingTheYearlyAverageDecidesAlsoWhereTheLayersSuffice) {
  const StockFigures figures =
      Walk(FifoRate, {In(-3, 2, kBefore), In(5, 5), Out(1, 9)},
           {{.in = -3, .out = 0, .value_in = Rupees(-6), .in_period = false},
            {.in = 5, .out = 1, .value_in = Rupees(25), .in_period = true}});
  EXPECT_EQ(figures.closing, (StockFigure{-2, Rupees(9.5)}));
}

// Sales of 2 that no line tells of, as a filter can leave them: with no inward quantity the average
// of the opening divides by 0.
TEST(Layers, SalesBeforeThePeriodWithoutInwardsDivideByZero) {
  const std::vector<LayerLine> lines = {In(3, 4)};
  try {
    (void)WalkLayers(lines, {.before = 2}, FifoRate, [] { return std::span<const LayerYear>(); });
    FAIL() << "no error";
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::kDivisionByZero);
  }
}

struct RandomBooks {
  explicit RandomBooks(std::uint32_t seed) : random(seed) {}
  std::mt19937 random;
  int Pick(int least, int most) { return std::uniform_int_distribution(least, most)(random); }

  // Never more sold than is there, so that the layers always suffice.
  std::vector<LayerLine> Lines(int least_rate, int most_rate) {
    std::vector<LayerLine> lines;
    int stock = 0;
    const int count = Pick(1, 12), first_of_period = Pick(0, count);
    for (int i = 0; i < count; ++i) {
      const When when = i < first_of_period ? kBefore : kWithin;
      if (stock > 0 && Pick(0, 1) == 0) {
        const int sold = Pick(1, stock);
        stock -= sold;
        lines.push_back(Out(sold, Pick(least_rate, most_rate), when));
      } else {
        const int bought = Pick(1, 30);
        stock += bought;
        lines.push_back(In(bought, Pick(least_rate, most_rate), when));
      }
    }
    return lines;
  }
};

TEST(Layers, OnRandomBooksLifosQuantitiesBalanceAndValuesLieBetweenTheRates) {
  RandomBooks books(3);
  for (int i = 0; i < 20'000; ++i) {
    const std::vector<LayerLine> lines = books.Lines(5, 40);
    for (const enmValuationMethod method : {FifoRate, LifoRate}) {
      const StockFigures figures = Walk(method, lines);
      const float moved =
          figures.opening.quantity + figures.inwards.quantity - figures.outwards.quantity;
      EXPECT_EQ(figures.closing.quantity,
                method == LifoRate ? moved : moved + figures.opening.quantity);
      const double stock = static_cast<double>(moved);
      EXPECT_GE(figures.closing.value.ToDouble(), 5 * stock);
      EXPECT_LE(figures.closing.value.ToDouble(), 40 * stock);
    }
  }
}

// A slow and plain way: every piece is a layer of its own, and each piece sold takes one from the
// front or the back of those that the whole period brought.
TEST(Layers, OnRandomBooksAgreeWithPiecesTakenOneByOne) {
  RandomBooks books(5);
  for (int i = 0; i < 20'000; ++i) {
    const std::vector<LayerLine> lines = books.Lines(1, 99);
    for (const enmValuationMethod method : {FifoRate, LifoRate}) {
      std::vector<double> pieces;
      int sold = 0;
      for (const LayerLine& line : lines) {
        pieces.insert(pieces.end(), static_cast<std::size_t>(line.in), line.rate);
        sold += static_cast<int>(line.out);
      }
      if (method == LifoRate) std::reverse(pieces.begin(), pieces.end());
      double left = 0;
      for (auto piece = pieces.begin() + sold; piece != pieces.end(); ++piece) left += *piece;
      EXPECT_EQ(Walk(method, lines).closing.value, Rupees(left));
    }
  }
}

TEST(Layers, WithOneRateFifoAndLifoGiveTheSameValue) {
  RandomBooks books(9);
  for (int i = 0; i < 5'000; ++i) {
    const std::vector<LayerLine> lines = books.Lines(17, 17);
    EXPECT_EQ(Walk(FifoRate, lines).closing.value, Walk(LifoRate, lines).closing.value);
    EXPECT_EQ(Walk(FifoRate, lines).opening, Walk(LifoRate, lines).opening);
  }
}

}  // namespace
}  // namespace pstolvane1
