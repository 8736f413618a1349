#include "valuation/Layers.h"

#include <cmath>

namespace pstolvane1 {
namespace {

double Of(float single) { return static_cast<double>(single); }

// The sales that are still to be set against layers, and what the layers behind them are worth.
class Consumption {
 public:
  explicit Consumption(float sold) : unsold_(sold) {}

  void Take(const LayerLine& line) {
    if (unsold_ <= 0) {
      value_ += line.value_in;
      return;
    }
    unsold_ = ToSingle(Of(unsold_) - Of(line.in));
    if (unsold_ <= 0) value_ += ValueAt(std::fabs(Of(unsold_)), line.rate);
  }

  [[nodiscard]] float Unsold() const { return unsold_; }
  [[nodiscard]] Currency Value() const { return value_; }

 private:
  float unsold_;
  Currency value_;
};

Currency AtAverage(float balance, const StockFigure& inwards) {
  const double rate = std::fabs(
      Quotient(inwards.value.ToDouble(), Of(inwards.quantity),
               "the sales exceed the layers, and no inward quantity gives them an average"));
  return ValueAt(rate, Of(balance));
}

StockFigure WalkOpening(std::span<const LayerLine> lines, const LayerSales& sales,
                        const std::function<std::span<const LayerYear>()>& years) {
  Consumption consumption(sales.before);
  StockFigure inwards;
  float balance = 0;
  for (const LayerLine& line : lines) {
    if (line.in_period) continue;
    inwards += {line.in, line.value_in};
    balance = ToSingle(Of(balance) + Of(line.in) - Of(line.out));
    consumption.Take(line);
  }
  Currency value = consumption.Value();
  if (consumption.Unsold() > 0) {
    if (balance >= 0) {
      value += AtAverage(balance, inwards);
    } else {
      value = StockYearlyAverageValue(years(), true);
    }
  }
  return {balance, value};
}

}  // namespace

Currency StockYearlyAverageValue(std::span<const LayerYear> years, bool blnOpeningOnly) {
  float balance = 0;
  Currency value;
  for (const LayerYear& year : years) {
    if (blnOpeningOnly && year.in_period) continue;
    const float total = ToSingle(Of(year.in) + Of(balance));
    balance = ToSingle(Of(total) - Of(year.out));
    if (total == 0) {
      value = {};
      continue;
    }
    const Currency rate =
        Currency::FromDouble(std::fabs((value + year.value_in).ToDouble() / Of(total)));
    value = ValueAt(rate.ToDouble(), Of(balance));
  }
  return value;
}

StockFigures WalkLayers(std::span<const LayerLine> lines, const LayerSales& sales,
                        enmValuationMethod method,
                        const std::function<std::span<const LayerYear>()>& years) {
  StockFigures figures;
  figures.opening = WalkOpening(lines, sales, years);

  Consumption consumption(ToSingle(Of(sales.before) + Of(sales.within)));
  float balance = figures.opening.quantity;
  for (const LayerLine& line : lines) {
    if (line.in_period) {
      figures.inwards += {line.in, line.value_in};
      figures.outwards += {line.out, line.value_out};
    }
    if (line.in_period || method == FifoRate) {
      balance = ToSingle(Of(balance) + Of(line.in) - Of(line.out));
    }
    consumption.Take(line);
  }
  Currency value = consumption.Value();
  if (consumption.Unsold() != 0 && balance < 0) {
    value = StockYearlyAverageValue(years(), false);
  } else if (consumption.Unsold() > 0 && balance > 0 && figures.inwards.quantity != 0) {
    value += AtAverage(balance, figures.inwards);
  }
  figures.closing = {balance, value};
  return figures;
}

}  // namespace pstolvane1
