#include "valuation/StockFigures.h"

#include <cmath>
#include <string>

#include "session/data/Error.h"
#include "session/data/Number.h"

namespace pstolvane1 {

float ToSingle(double value) {
  const auto single = static_cast<float>(value);
  if (std::isfinite(single)) return single;
  if (std::isfinite(value)) return Number(value).ToSingle();  // which says it
  throw Error(ErrorNumber::kOverflow, "a quantity is out of range");
}

double Quotient(double a, double b, std::string_view about) {
  if (b == 0) {
    throw Error(ErrorNumber::kDivisionByZero, "division by zero: " + std::string(about));
  }
  return a / b;
}

Currency ValueAt(double quantity, double rate) { return Currency::FromDouble(quantity * rate); }

StockFigure& StockFigure::operator+=(const StockFigure& other) {
  quantity = ToSingle(static_cast<double>(quantity) + static_cast<double>(other.quantity));
  value += other.value;
  return *this;
}

double RateOf(const StockFigure& figure) {
  return std::fabs(Quotient(figure.value.ToDouble(), static_cast<double>(figure.quantity),
                            "a value without a quantity has no rate"));
}

StockFigures& StockFigures::operator+=(const StockFigures& other) {
  opening += other.opening;
  inwards += other.inwards;
  outwards += other.outwards;
  closing += other.closing;
  return *this;
}

StockProfit ReckonStockProfit(const StockFigures& figures) {
  constexpr Currency kZero;
  StockProfit profit;
  profit.balance = figures.opening.value + figures.inwards.value - figures.outwards.value -
                   figures.closing.value;
  profit.consumption = figures.outwards.value - profit.GrossProfit();
  profit.percent =
      profit.consumption == kZero
          ? Currency::FromDouble(100)
          : Currency::FromDouble(profit.balance.ToDouble() / profit.consumption.ToDouble() * 100);
  if (profit.balance != kZero && profit.consumption < kZero) {
    profit.consumption = -profit.consumption;
  }
  return profit;
}

}  // namespace pstolvane1
