// Stock in layers, month by month: first in first out, last in first out. Pure arithmetic.
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "session/enmValuationMethod.h"
#include "valuation/MonthLedger.h"
#include "valuation/Months.h"

namespace pstolvane1 {

// A movement of a stock key. An outward opening line is a negative layer.
struct MonthLayerLine {
  float quantity = 0;
  double rate = 0;
  bool added = false, opening = false;
  int year = 0;
  std::optional<Date> date = {};  // opening lines may have none
};

// The stock keys of a report, one behind the other, and then the ledger of all of them.
//
// The closing stock of FifoRate is the newest layers, that of LifoRate the oldest. Quantity that
// went out before it came is owed: under FifoRate the next movement's outward quantity is raised by
// it, which is meant. A balance below zero is valued at an average that is carried from year to
// year; for a month that takes the lines of the months that are not behind it in the calendar,
// whatever their year, which is meant.
class MonthLayers {
 public:
  MonthLayers(enmValuationMethod method, int year, const StockPeriod& period,
              const std::vector<CalendarMonth>& months)
      : method_(method), year_(year), period_(period), months_(months), lines_(months.size() + 1) {}

  // The lines of a key up to the last day, by year, day and voucher line. Linear in them.
  void AddKey(std::span<const MonthLayerLine> lines);

  // A month whose movements have no value repeats the closing of the one before.
  [[nodiscard]] MonthLedger Ledger() const;

 private:
  enmValuationMethod method_;
  int year_;
  StockPeriod period_;
  const std::vector<CalendarMonth>& months_;
  std::vector<MonthFigures> lines_;  // the opening first
};

}  // namespace pstolvane1
