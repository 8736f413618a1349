#include "valuation/Months.h"

#include <algorithm>
#include <chrono>

namespace pstolvane1 {
namespace {

int LastDayOf(const CalendarMonth& month) {
  const auto last = std::chrono::year(month.year) /
                    std::chrono::month(static_cast<unsigned>(month.month)) / std::chrono::last;
  return static_cast<int>(static_cast<unsigned>(last.day()));
}

std::string Range(int first, int last) {
  return "(" + std::to_string(first) + " - " + std::to_string(last) + ")";
}

}  // namespace

CalendarMonth MonthOf(Date date) {
  const Date::Parts parts = date.ToParts();
  return {parts.year, parts.month};
}

std::vector<CalendarMonth> MonthsOf(const StockPeriod& period) {
  std::vector<CalendarMonth> months;
  const std::int32_t last = MonthOf(period.to).Key();
  for (CalendarMonth month = MonthOf(period.from); month.Key() <= last;) {
    months.push_back(month);
    month = month.month == 12 ? CalendarMonth{month.year + 1, 1}
                              : CalendarMonth{month.year, month.month + 1};
  }
  return months;
}

std::size_t PlaceOfMonth(const std::vector<CalendarMonth>& months, Date day) {
  const auto found = std::lower_bound(
      months.begin(), months.end(), MonthOf(day).Key(),
      [](const CalendarMonth& month, std::int32_t key) { return month.Key() < key; });
  return static_cast<std::size_t>(found - months.begin());
}

std::string MonthDayRangeLabel(Date a, Date b, bool blnLastMonth) {
  const int day = a.ToParts().day;
  const int other_day = b.ToParts().day;
  const int end = LastDayOf(MonthOf(a));
  const bool one_month = MonthOf(a) == MonthOf(b);
  if (!blnLastMonth) {
    if (one_month) return other_day == end ? std::string() : Range(day, other_day);
    return day > 1 ? Range(day, end) : std::string();
  }
  if (one_month) return day == end && other_day == 1 ? std::string() : Range(other_day, day);
  if (day == end) return {};
  return (day > 1 ? "(1 - " : "") + std::to_string(day) + ")";
}

std::string MonthText(std::string_view name, const CalendarMonth& month,
                      const StockPeriod& period) {
  std::string text(name);
  const auto add = [&text](const std::string& label) {
    if (!label.empty()) text += " " + label;
  };
  const CalendarMonth first = MonthOf(period.from);
  const CalendarMonth last = MonthOf(period.to);
  if (!(first == last) && month == first) add(MonthDayRangeLabel(period.from, period.to, false));
  if (month == last) add(MonthDayRangeLabel(period.to, period.from, true));
  return text;
}

}  // namespace pstolvane1
