// The rates that stock can be valued at: standard ones, and those of actual movements.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "session/data/RowGroups.h"

namespace pstolvane1 {

// Stands in for a first day that is not told, so that only the last day counts.
inline const Date kNeverBegins = Date::FromYmd(9999, 12, 31);

// A row of Standardrate1.
struct StandardRate {
  double rate = 0;
  Date from = kNeverBegins, to;
  std::int32_t year = 0;
  bool sale = false;  // a selling price, otherwise a cost
};

// A movement that can give a rate.
struct ActualRate {
  double rate = 0;
  std::optional<Date> date = {};  // opening lines may have none, and then no test of a day holds
  bool opening = false;
  std::optional<bool> added = {};  // neither inward nor outward where it is not told
  std::int64_t godown_id = 0, batch_id = 0;
};

// The rows of an item in the order of their rowset, read anew for each item that is asked for.
// What it gives is good until the next call.
class StandardRateRows {
 public:
  explicit StandardRateRows(const Recordset& rows);
  [[nodiscard]] std::span<const StandardRate> Of(std::int64_t item_id);

 private:
  RowGroups by_item_;
  ColumnHandle rate_, from_, to_, year_, sale_;
  std::optional<std::int64_t> item_id_;
  std::vector<StandardRate> rates_;
};

class ActualRateRows {
 public:
  explicit ActualRateRows(const Recordset& rows);
  [[nodiscard]] std::span<const ActualRate> Of(std::int64_t item_id);

 private:
  [[nodiscard]] std::optional<bool> AddedAt(const Recordset::Row& row) const;

  RowGroups by_item_;
  ColumnHandle rate_, date_, opening_, godown_id_, batch_id_;
  std::optional<ColumnHandle> added_;  // not told where all rows are inward
  std::optional<std::int64_t> item_id_;
  std::vector<ActualRate> rates_;
};

// The last of the rates that meet the test, nullptr where none does.
template <typename Rate, typename Test>
[[nodiscard]] const Rate* LastRate(std::span<const Rate> rates, Test&& test) {
  for (std::size_t i = rates.size(); i > 0; --i) {
    if (test(rates[i - 1])) return &rates[i - 1];
  }
  return nullptr;
}

// A day without its time, as the queries name it.
[[nodiscard]] Date DayOf(Date date);

}  // namespace pstolvane1
