#include "valuation/MonthLayers.h"

#include <array>
#include <cmath>
#include <map>

namespace pstolvane1 {
namespace {

double Of(float single) { return static_cast<double>(single); }
float Sum(float a, double b) { return ToSingle(Of(a) + b); }

struct Layer {
  float quantity;
  Currency rate;
};

// The newest layers that make up the balance.
Currency NewestLayers(std::span<const Layer> layers, float balance) {
  Currency value;
  float taken = 0;
  for (std::size_t i = layers.size(); i > 0 && taken < balance; --i) {
    const Layer& layer = layers[i - 1];
    const float need = Sum(balance, -Of(taken));
    if (need >= layer.quantity) {
      value += ValueAt(Of(layer.quantity), layer.rate.ToDouble());
      taken = Sum(taken, Of(layer.quantity));
    } else {
      value += ValueAt(Of(need), layer.rate.ToDouble());
      taken = balance;
    }
  }
  return value;
}

// What all that went out leaves when it eats the newest layers first.
Currency OldestLayers(std::span<const Layer> layers, float out) {
  Currency value;
  float remaining = out;
  for (std::size_t i = layers.size(); i > 0; --i) {
    const Layer& layer = layers[i - 1];
    if (remaining < 0) {
      value += ValueAt(Of(layer.quantity), layer.rate.ToDouble());
      continue;
    }
    remaining = Sum(remaining, -Of(layer.quantity));
    if (remaining < 0) value += ValueAt(std::fabs(Of(remaining)), layer.rate.ToDouble());
  }
  return value;
}

// An average that is carried from sum to sum.
struct CarriedAverage {
  float quantity = 0;
  Currency value;

  void Add(double in, double value_in, double out) {
    const float total = ToSingle(in + Of(quantity));
    quantity = Sum(total, -out);
    if (total == 0) {
      value = {};
      return;
    }
    const Currency sum = Currency::FromDouble(value_in) + value;
    const Currency rate = Currency::FromDouble(std::fabs(sum.ToDouble() / Of(total)));
    value = ValueAt(Of(quantity), rate.ToDouble());
  }
};

struct Sums {
  double in = 0, value_in = 0, out = 0;

  void Add(const MonthLayerLine& line) {
    if (line.added || line.opening) {
      const double quantity = line.added ? Of(line.quantity) : -Of(line.quantity);
      in += quantity;
      value_in += quantity * line.rate;
    } else {
      out += Of(line.quantity);
    }
  }
};

constexpr std::size_t kOpeningSlot = 0;

// Where a key stood when a slot was last written. The same month of two years has one slot.
struct Slot {
  bool seen = false;
  std::size_t layers = 0;
  float balance = 0, out = 0;
};
using Slots = std::array<Slot, 13>;

StockFigure YearlyAverage(std::span<const MonthLayerLine> lines, int year, Date from,
                          std::size_t slot) {
  std::map<int, Sums> years;
  Sums last;
  for (const MonthLayerLine& line : lines) {
    const bool before = line.date && *line.date < from;
    if (line.opening || (line.year != year && before)) years[line.year].Add(line);
    if (line.year != year || !line.date) continue;
    const bool counts =
        slot == kOpeningSlot ? before : static_cast<std::size_t>(MonthOf(*line.date).month) <= slot;
    if (counts) last.Add(line);
  }
  CarriedAverage average;
  for (const auto& [of_year, sums] : years) average.Add(sums.in, sums.value_in, sums.out);
  average.Add(last.in, last.value_in, last.out);
  return {average.quantity, average.value};
}

}  // namespace

void MonthLayers::AddKey(std::span<const MonthLayerLine> lines) {
  std::vector<Layer> layers;
  Slots slots;
  float balance = 0;
  float out = 0;
  float owed = 0;
  for (const MonthLayerLine& line : lines) {
    const double quantity = Of(line.quantity);
    MonthFigures record;
    if (line.added || line.opening) {
      const float in = line.added ? line.quantity : -line.quantity;
      layers.push_back({in, Currency::FromDouble(line.rate)});
      balance = Sum(balance, Of(in));
      record.inwards = {in, ValueAt(Of(in), line.rate)};
    } else {
      balance = Sum(balance, -quantity);
      out = Sum(out, quantity);
      record.outwards = {line.quantity, ValueAt(quantity, line.rate)};
    }
    if (method_ == FifoRate) {
      record.outwards.quantity = Sum(record.outwards.quantity, Of(owed));
      owed = balance < 0 ? -balance : 0;
    }
    const bool opens = line.opening || !line.date || *line.date < period_.from;
    const std::size_t place = opens ? 0 : PlaceOfMonth(months_, *line.date) + 1;
    if (place >= lines_.size()) continue;  // of no month of the period
    lines_[place] += record;
    slots.at(opens ? kOpeningSlot : static_cast<std::size_t>(months_[place - 1].month)) = {
        .seen = true, .layers = layers.size(), .balance = balance, .out = out};
  }

  std::array<StockFigure, 13> closings;
  for (std::size_t slot = 0; slot < slots.size(); ++slot) {
    const Slot& at = slots.at(slot);
    if (!at.seen) continue;
    const std::span<const Layer> there(layers.data(), at.layers);
    StockFigure& closing = closings.at(slot);
    closing.quantity = at.balance;
    if (at.balance > 0) {
      closing.value =
          method_ == FifoRate ? NewestLayers(there, at.balance) : OldestLayers(there, at.out);
    } else if (at.balance < 0) {
      closing = YearlyAverage(lines, year_, period_.from, slot);
    }
  }

  StockFigure carried;
  for (std::size_t place = 0; place < lines_.size(); ++place) {
    const std::size_t slot =
        place == 0 ? kOpeningSlot : static_cast<std::size_t>(months_[place - 1].month);
    if (slots.at(slot).seen) carried = closings.at(slot);
    lines_[place].closing += carried;
  }
}

MonthLedger MonthLayers::Ledger() const {
  MonthLedger ledger{.opening = lines_.front().closing,
                     .months = {lines_.begin() + 1, lines_.end()},
                     .before = lines_.front()};
  StockFigure before = ledger.opening;
  for (MonthFigures& month : ledger.months) {
    const bool moved = month.inwards.value != Currency() || month.outwards.value != Currency();
    if (!moved) month.closing = before;
    before = month.closing;
  }
  return ledger;
}

}  // namespace pstolvane1
