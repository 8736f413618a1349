// The calendar months of a period, and how its first and last one are told. Pure.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "valuation/StockPeriod.h"

namespace pstolvane1 {

struct CalendarMonth {
  int year = 0;
  int month = 0;  // 1 to 12

  // February 2004 is 200402.
  [[nodiscard]] std::int32_t Key() const { return year * 100 + month; }
  friend bool operator==(const CalendarMonth&, const CalendarMonth&) = default;
};

[[nodiscard]] CalendarMonth MonthOf(Date date);

// The months from that of the first day to that of the last, each once, oldest first. None where
// the last day lies in an earlier month than the first.
[[nodiscard]] std::vector<CalendarMonth> MonthsOf(const StockPeriod& period);

// Where a day's month stands in a list that MonthsOf gave: of those behind it the first, so that
// the day is before the end of that month. The list's size for a day behind all of them.
[[nodiscard]] std::size_t PlaceOfMonth(const std::vector<CalendarMonth>& months, Date day);

// The part of a's month that a period covers which has a at one end and b at the other, as
// "(15 - 31)"; "" for a whole month. With blnLastMonth a is the last day of the period, otherwise
// the first. A period that ends on the first of a month gives "1)" for it, which is meant.
[[nodiscard]] std::string MonthDayRangeLabel(Date a, Date b, bool blnLastMonth);

// The name of a month with the label of its part behind: "January (15 - 31)".
[[nodiscard]] std::string MonthText(std::string_view name, const CalendarMonth& month,
                                    const StockPeriod& period);

}  // namespace pstolvane1
