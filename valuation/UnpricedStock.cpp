#include "valuation/UnpricedStock.h"

namespace pstolvane1 {
namespace {

bool Counts(const StandardRate& cost, StockSide side, const UnpricedYear& year) {
  if (year.carried_year && cost.year > *year.carried_year) return false;
  if (side == StockSide::kOpening) return cost.from < year.period.from;
  return (year.carried_year ? cost.from : cost.to) <= year.period.to;
}

}  // namespace

StockFigures ValueUnpricedStock(StockFigures figures, std::span<const StandardRate> costs,
                                const UnpricedYear& year) {
  const auto value = [&](StockFigure& figure, StockSide side) {
    if (figure.value != Currency() || figure.quantity == 0) return;
    const StandardRate* cost =
        LastRate(costs, [&](const StandardRate& one) { return Counts(one, side, year); });
    if (cost) figure.value = ValueAt(static_cast<double>(figure.quantity), cost->rate);
  };
  value(figures.opening, StockSide::kOpening);
  value(figures.closing, StockSide::kClosing);
  return figures;
}

}  // namespace pstolvane1
