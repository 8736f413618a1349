#include "valuation/AverageYears.h"

#include <cmath>

#include "valuation/UnpricedStock.h"

namespace pstolvane1 {
namespace {

void AddIfTold(SureSum& sum, const std::optional<double>& number, bool adds) {
  if (number) sum.Add(adds ? *number : -*number);
}

StockFigure PositionOf(const AverageYear& year) { return {year.quantity, year.value}; }

// One year, at the last cost where nothing entered at a price.
StockFigures FiguresOf(const AverageYearSums& year, std::span<const StandardRate> costs,
                       const UnpricedYear& unpriced) {
  const AverageYear closing = year.Closing();
  const StockFigures figures{.opening = PositionOf(year.Opening()),
                             .inwards = year.Inwards(),
                             .outwards = year.Outwards(),
                             .closing = PositionOf(closing)};
  return closing.entering_quantity == 0 ? ValueUnpricedStock(figures, costs, unpriced) : figures;
}

}  // namespace

void AverageYearSums::Position::Add(const MovedLine& line) {
  AddIfTold(quantity, line.quantity, line.inward);
  if (!line.enters) return;
  AddIfTold(entering, line.quantity, line.inward);
  AddIfTold(entering_value, line.amount, line.inward);
}

AverageYear AverageYearSums::Position::Valued() const {
  const double left = quantity.Result();
  const double entered = entering.Result();
  const double value = entering_value.Result();
  const double rate =
      entered == 0 ? 0 : std::fabs(Currency::FromDouble(value / entered).ToDouble());
  return {.quantity = ToSingle(left),
          .value = ValueAt(left, rate),
          .entering_quantity = ToSingle(entered),
          .entering_value = Currency::FromDouble(value)};
}

void AverageYearSums::Moved::Add(const MovedLine& line) {
  AddIfTold(quantity, line.quantity, true);
  AddIfTold(value, line.amount, true);
}

StockFigure AverageYearSums::Moved::Figure() const {
  return {ToSingle(quantity.Result()), Currency::FromDouble(value.Result())};
}

void AverageYearSums::Add(const MovedLine& line) {
  if (line.in_opening) opening_.Add(line);
  if (line.in_closing) closing_.Add(line);
  if (line.came) came_.Add(line);
  if (line.went) went_.Add(line);
}

AverageYear AverageYearSums::Opening() const {
  return SumOf("the opening", [this] { return opening_.Valued(); });
}
AverageYear AverageYearSums::Closing() const {
  return SumOf("the closing", [this] { return closing_.Valued(); });
}
StockFigure AverageYearSums::Inwards() const {
  return SumOf("what came in", [this] { return came_.Figure(); });
}
StockFigure AverageYearSums::Outwards() const {
  return SumOf("what went out", [this] { return went_.Figure(); });
}

StockFigures FiguresOfFirstYear(const AverageYearSums& year, std::span<const StandardRate> costs,
                                const StockPeriod& period) {
  return FiguresOf(year, costs, {.period = period, .carried_year = {}});
}

StockFigures mStock_MergeYears(std::span<const AverageYearSums> years,
                               std::span<const StandardRate> costs, const StockPeriod& period) {
  StockFigures figures =
      FiguresOf(years.front(), costs, {.period = period, .carried_year = years.front().Year()});
  if (years.size() == 1) return figures;
  AverageFold opening(figures.opening, AverageBase::kSumsAllYears);
  AverageFold closing(figures.closing, AverageBase::kRestartsEachYear);
  for (const AverageYearSums& year : years.subspan(1)) {
    closing.AddYear(year.Closing());
    opening.AddYear(year.Opening());
  }
  return {.opening = opening.Position(),
          .inwards = years.back().Inwards(),
          .outwards = years.back().Outwards(),
          .closing = closing.Position()};
}

}  // namespace pstolvane1
