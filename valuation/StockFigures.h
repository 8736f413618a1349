// Quantities and values of stock, and what is reckoned of them on every line. Pure arithmetic.
#pragma once

#include <string_view>

#include "session/data/Currency.h"

namespace pstolvane1 {

// A value as a 32-bit float, rounded once; error 6 beyond its range.
[[nodiscard]] float ToSingle(double value);
// a / b; error 11, with what the division is about, where b is 0.
[[nodiscard]] double Quotient(double a, double b, std::string_view about);
// A quantity times a rate, in double, rounded once to money; error 6 beyond its range.
[[nodiscard]] Currency ValueAt(double quantity, double rate);

// One side of a stock line, in base units and unscaled money. A negative stock has a negative
// quantity and value.
struct StockFigure {
  float quantity = 0;
  Currency value;

  StockFigure& operator+=(const StockFigure& other);  // error 6 beyond the ranges
  friend bool operator==(const StockFigure&, const StockFigure&) = default;
};

// The absolute value per unit, unrounded; error 11 for no quantity.
[[nodiscard]] double RateOf(const StockFigure& figure);

// What a stock line tells of a key, an item or a group.
struct StockFigures {
  StockFigure opening = {}, inwards = {}, outwards = {}, closing = {};

  StockFigures& operator+=(const StockFigures& other);
  friend bool operator==(const StockFigures&, const StockFigures&) = default;
};

// The trading account of a stock line: what was sold and is left against what was there and came.
struct StockProfit {
  Currency balance;      // opening + inwards - outwards - closing: the gross profit, negated
  Currency consumption;  // what the goods sold cost; made positive where there is a profit or loss
  // The balance per hundred of the consumption, and 100 where nothing was consumed. It is shown
  // with the other sign, so that a sale of goods without a cost shows -100 %; that is meant.
  Currency percent;

  [[nodiscard]] Currency GrossProfit() const { return -balance; }
};

// Only the values count. Opening 100, inwards 500, outwards 450 and closing 300 give a balance of
// -150, a consumption of 300 and a percentage of -50.
[[nodiscard]] StockProfit ReckonStockProfit(const StockFigures& figures);

}  // namespace pstolvane1
