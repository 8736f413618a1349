#include "valuation/LayerLines.h"

#include <map>
#include <utility>

#include "session/data/SureSum.h"

namespace pstolvane1 {
namespace {

struct YearSums {
  SureSum in, out, value_in;
};

}  // namespace

LayerLine AsLayer(const StockLine& line) {
  LayerLine layer{.rate = line.rate, .in_period = line.in_period};
  switch (line.kind) {
    case StockLine::Kind::kNothing:
      break;
    case StockLine::Kind::kInward:
      layer.in = ToSingle(line.quantity);
      layer.value_in = line.value;
      break;
    case StockLine::Kind::kOutwardOpening:
      layer.in = ToSingle(-line.quantity);
      layer.value_in = -line.value;
      break;
    case StockLine::Kind::kOutward:
      layer.out = ToSingle(line.quantity);
      layer.value_out = line.value;
      break;
  }
  return layer;
}

LayerSales SumSales(std::span<const StockLine> lines) {
  SureSum before, within;
  for (const StockLine& line : lines) {
    if (line.sale == StockLine::Sale::kBefore) before.Add(line.quantity);
    if (line.sale == StockLine::Sale::kWithin) within.Add(line.quantity);
  }
  return {.before = ToSingle(before.Result()), .within = ToSingle(within.Result())};
}

std::vector<LayerYear> SumYears(std::span<const StockLine> lines) {
  std::map<std::pair<std::int32_t, bool>, YearSums> years;
  for (const StockLine& line : lines) {
    YearSums& sums = years[{line.year, line.in_period}];
    if (line.kind == StockLine::Kind::kNothing) continue;
    if (line.kind == StockLine::Kind::kOutward) {
      sums.out.Add(line.quantity);
      continue;
    }
    const bool inward = line.kind == StockLine::Kind::kInward;
    sums.in.Add(inward ? line.quantity : -line.quantity);
    sums.value_in.Add(inward ? line.amount : -line.amount);
  }
  std::vector<LayerYear> rows;
  rows.reserve(years.size());
  for (const auto& [year, sums] : years) {
    rows.push_back({.in = ToSingle(sums.in.Result()),
                    .out = ToSingle(sums.out.Result()),
                    .value_in = Currency::FromDouble(sums.value_in.Result()),
                    .in_period = year.second});
  }
  return rows;
}

}  // namespace pstolvane1
