#include <array>
#include <fmt/format.h>

#include "session/engine/sqlite/Functions.h"
#include "session/engine/sqlite/IsoText.h"

namespace pstolvane1::sqlite {
namespace {

IsoText DateOf(const Call& call) {
  const std::string_view text = call.Text(0);
  const std::optional<IsoText> date = ReadIsoText(text);
  if (!date) ThrowNot("\"" + std::string(text) + "\"", "a date");
  return *date;
}

void CanonicalDate(Call& call) {
  constexpr std::size_t kDayOnly = 10;
  const IsoText date = DateOf(call);
  if (call.Text(0).size() == kDayOnly) return call.ReturnArgument(0);
  call.Return(CanonicalText(date));
}

void Year(Call& call) { call.Return(std::int64_t{DateOf(call).year}); }
void Month(Call& call) { call.Return(std::int64_t{DateOf(call).month}); }
void Day(Call& call) { call.Return(std::int64_t{DateOf(call).day}); }

void DateText(Call& call) {
  constexpr std::array kMonths{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                               "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  const IsoText date = DateOf(call);
  std::string text;
  if (call.Setting(1) == 0) {
    text = fmt::format("{:04}-{:02}-{:02}", date.year, date.month, date.day);
  } else {
    const int hour = date.hour % 12 == 0 ? 12 : date.hour % 12;
    text =
        fmt::format("{} {:2} {:04} {:2}:{:02}{}", kMonths[static_cast<std::size_t>(date.month - 1)],
                    date.day, date.year, hour, date.minute, date.hour < 12 ? "AM" : "PM");
  }
  call.Return(std::string_view(text).substr(0, static_cast<std::size_t>(call.Setting(2))));
}

constexpr std::array kDateFunctions{
    ScalarFunction{"pst_date", 1, &Scalar<CanonicalDate>},
    ScalarFunction{"pst_year", 1, &Scalar<Year>},
    ScalarFunction{"pst_month", 1, &Scalar<Month>},
    ScalarFunction{"pst_day", 1, &Scalar<Day>},
    ScalarFunction{"pst_date_text", 3, &Scalar<DateText>},
};

}  // namespace

std::span<const ScalarFunction> DateFunctions() { return kDateFunctions; }

}  // namespace pstolvane1::sqlite
