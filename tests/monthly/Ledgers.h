// Asks for month ledgers and reads their figures.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "golden/SmallBooks.h"
#include "session/clsStolvane1.h"
#include "valuation/StockFigures.h"
#include "valuation/StockPeriod.h"

namespace pstolvane1 {

struct LedgerLine {
  std::string month;
  StockFigure inwards = {}, outwards = {}, closing = {};
  Currency opening = {};  // the closing value of the line before

  friend bool operator==(const LedgerLine&, const LedgerLine&) = default;
};

struct Ledger {
  StockFigure opening;
  std::vector<LedgerLine> months;
  StockFigures totals;  // of the last line; without an opening
  Currency profit;      // of the period
};

inline constexpr enmValuationMethod kMonthlyMethods[] = {
    FifoRate,     LifoRate,     AverageRate,   LastPurchaseRate,
    LastSaleRate, standardrate, StandardPrice, SimpleAvg};

// A year from 1 April, the first of them 2003.
[[nodiscard]] StockPeriod YearOf(int year);

// A session with books whose open year is the one given.
class LedgerSession {
 public:
  using Entry = decltype(&clsStolvane1::Monthly_Itemwise);

  explicit LedgerSession(const golden::SmallBooks& books, int year = 1);

  // The item, or the group without those below it.
  Ledger Of(Entry entry, enmValuationMethod method, const StockPeriod& period, int id);
  Ledger OfItem(enmValuationMethod method, const StockPeriod& period, int item) {
    return Of(&clsStolvane1::Monthly_Itemwise, method, period, item);
  }
  Ledger InGodown(enmValuationMethod method, const StockPeriod& period, int item, int godown);
  // What the stock statement tells of an item.
  StockFigures Statement(enmValuationMethod method, const StockPeriod& period, int item);

 private:
  clsStolvane1 session_;
  std::uint8_t year_;
};

}  // namespace pstolvane1
