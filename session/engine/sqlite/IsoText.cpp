#include "session/engine/sqlite/IsoText.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>

#include "session/data/Ascii.h"

namespace pstolvane1::sqlite {
namespace {

// Reads a number of exactly that many digits from the front of the text; -1 if there is none.
int TakeNumber(std::string_view& text, std::size_t digits) {
  if (text.size() < digits) return -1;
  int number = 0;
  for (std::size_t i = 0; i < digits; ++i) {
    if (!IsDigit(text[i])) return -1;
    number = number * 10 + (text[i] - '0');
  }
  text.remove_prefix(digits);
  return number;
}

bool Take(std::string_view& text, char c) {
  if (text.empty() || text[0] != c) return false;
  text.remove_prefix(1);
  return true;
}

int DaysOf(int year, int month) {
  constexpr std::array kDays{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  const bool leap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
  return month == 2 && leap ? 29 : kDays[static_cast<std::size_t>(month - 1)];
}

bool TakeTime(std::string_view& text, IsoText& date) {
  date.hour = TakeNumber(text, 2);
  if (!Take(text, ':')) return false;
  date.minute = TakeNumber(text, 2);
  if (Take(text, ':')) {
    date.second = TakeNumber(text, 2);
    if (Take(text, '.')) {
      const std::size_t size = static_cast<std::size_t>(
          std::find_if_not(text.begin(), text.end(), IsDigit) - text.begin());
      if (size == 0) return false;
      date.fraction = text.substr(0, size);
      date.fraction = date.fraction.substr(0, date.fraction.find_last_not_of('0') + 1);
      text.remove_prefix(size);
    }
  }
  return date.hour >= 0 && date.hour < 24 && date.minute >= 0 && date.minute < 60 &&
         date.second >= 0 && date.second < 60;
}

}  // namespace

std::optional<IsoText> ReadIsoText(std::string_view text) {
  constexpr int kFirstYear = 100;  // where Date begins
  IsoText date{};
  date.year = TakeNumber(text, 4);
  if (date.year < kFirstYear || !Take(text, '-')) return std::nullopt;
  date.month = TakeNumber(text, 2);
  if (date.month < 1 || date.month > 12 || !Take(text, '-')) return std::nullopt;
  date.day = TakeNumber(text, 2);
  if (date.day < 1 || date.day > DaysOf(date.year, date.month)) return std::nullopt;
  if (text.empty()) return date;
  if (!Take(text, ' ') && !Take(text, 'T')) return std::nullopt;
  if (!TakeTime(text, date) || !text.empty()) return std::nullopt;
  return date;
}

std::string CanonicalText(const IsoText& date) {
  std::string text = fmt::format("{:04}-{:02}-{:02}", date.year, date.month, date.day);
  if (date.IsMidnight()) return text;
  text += fmt::format(" {:02}:{:02}:{:02}", date.hour, date.minute, date.second);
  if (!date.fraction.empty()) text.append(".").append(date.fraction);
  return text;
}

}  // namespace pstolvane1::sqlite
