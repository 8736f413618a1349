#include "analysis/MovementFigures.h"

#include <cmath>

#include "valuation/StockFigures.h"

namespace pstolvane1 {
namespace {

float Sum(float sum, double more) { return ToSingle(static_cast<double>(sum) + more); }

}  // namespace

void MovementSums::Add(const MovementFigures& line) {
  in = Sum(in, line.in);
  out = Sum(out, line.out);
  value_in += Currency::FromDouble(line.value_in);
  value_out += Currency::FromDouble(line.value_out);
}

void MovementSums::Add(const MovementSums& sums) {
  in = Sum(in, static_cast<double>(sums.in));
  out = Sum(out, static_cast<double>(sums.out));
  value_in += sums.value_in;
  value_out += sums.value_out;
}

MovementFigures MovementSums::Figures() const {
  return {.in = static_cast<double>(in),
          .out = static_cast<double>(out),
          .value_in = value_in.ToDouble(),
          .value_out = value_out.ToDouble()};
}

double BalanceOf(MovementSide side, const MovementFigures& figures) {
  return side == MovementSide::kSales ? figures.out - figures.in : figures.in - figures.out;
}

double NetValueOf(MovementSide side, const MovementFigures& figures) {
  return side == MovementSide::kSales ? figures.value_out - figures.value_in
                                      : figures.value_in - figures.value_out;
}

std::optional<double> ReturnedPercent(MovementSide side, const MovementFigures& figures) {
  if (figures.in == 0 || figures.out == 0) return std::nullopt;
  return side == MovementSide::kSales ? 100 / figures.out * figures.in
                                      : 100 / figures.in * figures.out;
}

double DaysOf(Date from, Date to) {
  const double days = std::nearbyint(to.Elapsed() - from.Elapsed());
  return days == 0 ? 1 : days;
}

}  // namespace pstolvane1
