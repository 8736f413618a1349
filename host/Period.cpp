#include "host/Period.h"

#include <algorithm>
#include <charconv>
#include <fmt/format.h>
#include <optional>
#include <string_view>

#include "automation/CallInWords.h"

namespace pstolvane1::host {
namespace {

using automation::WrongCall;

constexpr std::string_view kTakes =
    "a period is a year as 2004-05, a month as 2004-08, or from..to as 2004-04..2004-06";

std::optional<int> Number(std::string_view digits, std::size_t length) {
  int number = 0;
  const char* const end = digits.data() + digits.size();
  if (digits.size() != length || std::from_chars(digits.data(), end, number).ptr != end) {
    return std::nullopt;
  }
  return number;
}

struct YearAndMonth {
  int year, month;
};

// "2004-05" as its two numbers.
std::optional<YearAndMonth> TwoNumbers(std::string_view text) {
  if (text.size() != 7 || text[4] != '-') return std::nullopt;
  const auto year = Number(text.substr(0, 4), 4), month = Number(text.substr(5), 2);
  if (!year || !month) return std::nullopt;
  return YearAndMonth{*year, *month};
}

Date DayBefore(Date day) { return Date(day.Serial() - 1); }

Date EndOfMonth(int year, int month) {
  return DayBefore(month == 12 ? Date::FromYmd(year + 1, 1, 1) : Date::FromYmd(year, month + 1, 1));
}

struct Days {
  Date first, last;
};

std::optional<Days> DayOrMonth(std::string_view text) {
  if (const auto day = Date::FromIso(text)) return Days{*day, *day};
  const auto month = TwoNumbers(text);
  if (!month || month->month < 1 || month->month > 12) return std::nullopt;
  return Days{Date::FromYmd(month->year, month->month, 1), EndOfMonth(month->year, month->month)};
}

[[noreturn]] void NoYear(const std::string& text, const std::vector<AccountingYear>& years) {
  std::string told;
  for (const AccountingYear& year : years) told += (told.empty() ? "" : ", ") + NameOf(year);
  throw WrongCall(fmt::format("the books have no year for {}; they have {}", text,
                              told.empty() ? "no movements" : told));
}

// The year that begins in that year of the calendar.
std::optional<int> YearThatBegins(std::string_view text) {
  if (const auto year = Number(text, 4)) return year;
  const auto both = TwoNumbers(text);
  if (both && (both->year + 1) % 100 == both->month) return both->year;
  return std::nullopt;
}

Period Within(const Days& days, const std::string& text, const std::vector<AccountingYear>& years) {
  const auto year = std::ranges::find_if(years, [&](const AccountingYear& one) {
    return one.first <= days.last && days.last <= one.last;
  });
  if (year == years.end()) NoYear(text, years);
  return {year->number, days.first, days.last};
}

}  // namespace

std::string NameOf(const AccountingYear& year) {
  const int first = year.first.ToParts().year, last = year.last.ToParts().year;
  return first == last ? std::to_string(first) : fmt::format("{}-{:02}", first, last % 100);
}

Period PeriodOf(const std::string& text, const std::vector<AccountingYear>& years) {
  if (text.empty()) {
    if (years.empty()) throw WrongCall("the books have no movements, and so no year to report");
    return {years.back().number, years.back().first, years.back().last};
  }
  if (const auto begins = YearThatBegins(text)) {
    const auto year = std::ranges::find_if(
        years, [&](const AccountingYear& one) { return one.first.ToParts().year == *begins; });
    if (year == years.end()) NoYear(text, years);
    return {year->number, year->first, year->last};
  }
  const std::size_t dots = text.find("..");
  const auto from = DayOrMonth(std::string_view(text).substr(0, dots));
  const auto to =
      dots == std::string::npos ? from : DayOrMonth(std::string_view(text).substr(dots + 2));
  if (!from || !to) throw WrongCall(fmt::format("{}, not \"{}\"", kTakes, text));
  if (to->last < from->first) {
    throw WrongCall(fmt::format("the period {} ends before it begins", text));
  }
  return Within({from->first, to->last}, text, years);
}

}  // namespace pstolvane1::host
