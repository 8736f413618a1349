#include "session/data/FilterDate.h"

#include <tuple>

#include "session/data/Ascii.h"
#include "session/data/Error.h"
#include "session/data/TextFold.h"

namespace pstolvane1 {

namespace {

struct Digits {
  int number = 0;
  std::size_t count = 0;
};

// Takes up to four digits off the text's head.
Digits TakeDigits(std::string_view& text) {
  Digits digits;
  while (digits.count < 4 && digits.count < text.size() && IsDigit(text[digits.count])) {
    digits.number = digits.number * 10 + (text[digits.count++] - '0');
  }
  text.remove_prefix(digits.count);
  return digits;
}

bool Take(std::string_view& text, char c) {
  if (text.empty() || text.front() != c) return false;
  text.remove_prefix(1);
  return true;
}

struct Time {
  int hour = 0;
  int minute = 0;
  int second = 0;
};

std::optional<Time> ReadTime(std::string_view text) {
  Time time;
  const Digits hour = TakeDigits(text);
  if (hour.count == 0 || hour.count > 2 || !Take(text, ':')) return std::nullopt;
  const Digits minute = TakeDigits(text);
  if (minute.count != 2) return std::nullopt;
  time = {hour.number, minute.number, 0};
  if (Take(text, ':')) {
    const Digits second = TakeDigits(text);
    if (second.count != 2) return std::nullopt;
    time.second = second.number;
  }
  text = Trimmed(text);
  if (text.empty()) return time;
  const bool afternoon = EqualFolded(text, "pm");
  if ((!afternoon && !EqualFolded(text, "am")) || time.hour < 1 || time.hour > 12) {
    return std::nullopt;
  }
  time.hour = time.hour % 12 + (afternoon ? 12 : 0);
  return time;
}

}  // namespace

std::optional<Date> ReadFilterDate(std::string_view text) {
  text = Trimmed(text);
  if (const std::optional<Date> iso = Date::FromIso(text)) return iso;
  Digits part[3];
  char sign = '\0';
  for (int i = 0; i < 3; ++i) {
    if (i == 1 && !text.empty() && (text.front() == '/' || text.front() == '-'))
      sign = text.front();
    if (i > 0 && !Take(text, sign)) return std::nullopt;
    part[i] = TakeDigits(text);
    if (part[i].count == 0) return std::nullopt;
  }
  const bool year_first = part[0].count == 4;
  const auto [year, month, day] =
      year_first ? std::tuple(part[0], part[1], part[2]) : std::tuple(part[2], part[0], part[1]);
  if (year.count != 4 || month.count > 2 || day.count > 2) return std::nullopt;
  Time time;
  if (!text.empty()) {
    if (!Take(text, ' ')) return std::nullopt;
    const std::optional<Time> read = ReadTime(Trimmed(text));
    if (!read) return std::nullopt;
    time = *read;
  }
  try {
    return Date::FromYmdHms(year.number, month.number, day.number, time.hour, time.minute,
                            time.second);
  } catch (const Error&) {
    return std::nullopt;
  }
}

}  // namespace pstolvane1
