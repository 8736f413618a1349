// The rates that stock can be valued at: standard ones, and those of actual movements.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "session/data/Date.h"

namespace pstolvane1 {

// Stands in for a first day that is not told, so that only the last day counts.
inline const Date kNeverBegins = Date::FromYmd(9999, 12, 31);

// A rate of the standard rate table, in force from one day to another.
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

// The last of the rates that meet the test, nullptr where none does.
template <typename Rate, typename Test>
[[nodiscard]] const Rate* LastRate(std::span<const Rate> rates, Test&& test) {
  for (std::size_t i = rates.size(); i > 0; --i) {
    if (test(rates[i - 1])) return &rates[i - 1];
  }
  return nullptr;
}

}  // namespace pstolvane1
