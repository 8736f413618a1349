#include "session/rowset/DatePattern.h"

#include <algorithm>
#include <cstddef>

#include "session/data/Error.h"

namespace pstolvane1 {
namespace {

constexpr std::string_view kFieldLetters = "GyuMLdEechHkKmsa";

bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

void WriteNumber(int number, int width, const DateNames& names, std::string& text) {
  std::string plain = std::to_string(number);
  if (plain.size() < static_cast<std::size_t>(width)) {
    plain.insert(0, static_cast<std::size_t>(width) - plain.size(), '0');
  }
  for (const char digit : plain) text += names.digits[digit - '0'];
}

// 0 is Sunday; a Date's serial 1 was one.
std::size_t DayOfWeek(const Date::Parts& parts) {
  const auto serial = static_cast<long>(Date::FromYmd(parts.year, parts.month, parts.day).Serial());
  return static_cast<std::size_t>(((serial - 1) % 7 + 7) % 7);
}

struct Number {
  int value = 0;
  int digits = 0;
};

// The runs of digits in a text, each capped at four digits' value; what stands between is dropped.
std::vector<Number> NumbersIn(std::string_view text, const DateNames& names) {
  std::vector<Number> numbers;
  bool in_number = false;
  while (!text.empty()) {
    const auto* const digit = std::find_if(
        std::begin(names.digits), std::end(names.digits),
        [text](const std::string& shape) { return !shape.empty() && text.starts_with(shape); });
    if (digit == std::end(names.digits)) {
      in_number = false;
      text.remove_prefix(1);
      continue;
    }
    if (!in_number) numbers.emplace_back();
    in_number = true;
    Number& number = numbers.back();
    if (++number.digits <= 4) {
      number.value = number.value * 10 + static_cast<int>(digit - std::begin(names.digits));
    }
    text.remove_prefix(digit->size());
  }
  return numbers;
}

}  // namespace

DatePattern::DatePattern(std::string_view pattern) {
  for (std::size_t i = 0; i < pattern.size();) {
    if (IsLetter(pattern[i])) {
      const std::size_t end = std::min(pattern.find_first_not_of(pattern[i], i), pattern.size());
      if (kFieldLetters.find(pattern[i]) == std::string_view::npos) {
        throw Error(ErrorNumber::kArgumentOutOfRange, "the date pattern \"" + std::string(pattern) +
                                                          "\" has the unknown field '" +
                                                          pattern[i] + "'");
      }
      fields_.push_back({pattern[i], static_cast<int>(end - i), {}});
      i = end;
      continue;
    }
    if (fields_.empty() || fields_.back().letter != 0) fields_.emplace_back();
    std::string& literal = fields_.back().literal;
    if (pattern[i] != '\'') {
      literal += pattern[i++];
      continue;
    }
    // Quoted text; two quotes, inside or outside of it, are one.
    ++i;
    if (i < pattern.size() && pattern[i] == '\'') {
      literal += pattern[i++];
      continue;
    }
    for (; i < pattern.size(); ++i) {
      if (pattern[i] == '\'') {
        if (i + 1 >= pattern.size() || pattern[i + 1] != '\'') break;
        ++i;
      }
      literal += pattern[i];
    }
    ++i;
  }
  const auto between = std::find_if(fields_.begin(), fields_.end(),
                                    [](const Field& field) { return field.letter == 0; });
  if (between != fields_.end()) first_separator_ = between->literal;
}

void DatePattern::WriteField(const Field& field, const Date::Parts& parts, const DateNames& names,
                             std::string& text) {
  const auto month = static_cast<std::size_t>(parts.month - 1);
  const int hour12 = parts.hour % 12 == 0 ? 12 : parts.hour % 12;
  switch (field.letter) {
    case 'G':
      text += names.era;
      return;
    case 'y':
    case 'u':
      return WriteNumber(parts.year, std::max(field.width, 4), names, text);
    case 'M':
      if (field.width >= 4) {
        text += names.months[month];
      } else if (field.width == 3) {
        text += names.short_months[month];
      } else {
        WriteNumber(parts.month, field.width, names, text);
      }
      return;
    case 'L':
      if (field.width >= 4) {
        text += names.standalone_months[month];
      } else if (field.width == 3) {
        text += names.short_standalone_months[month];
      } else {
        WriteNumber(parts.month, field.width, names, text);
      }
      return;
    case 'd':
      return WriteNumber(parts.day, field.width, names, text);
    case 'E':
    case 'e':
    case 'c':
      text += field.width >= 4 ? names.days[DayOfWeek(parts)] : names.short_days[DayOfWeek(parts)];
      return;
    case 'h':
      return WriteNumber(hour12, field.width, names, text);
    case 'H':
      return WriteNumber(parts.hour, field.width, names, text);
    case 'k':
      return WriteNumber(parts.hour == 0 ? 24 : parts.hour, field.width, names, text);
    case 'K':
      return WriteNumber(parts.hour % 12, field.width, names, text);
    case 'm':
      return WriteNumber(parts.minute, field.width, names, text);
    case 's':
      return WriteNumber(parts.second, field.width, names, text);
    default:  // 'a': the constructor lets no other letter in
      text += names.halves[parts.hour < 12 ? 0 : 1];
  }
}

std::string DatePattern::Format(const Date::Parts& parts, const DateNames& names) const {
  std::string text;
  for (const Field& field : fields_) {
    if (field.letter == 0) {
      text += field.literal;
    } else {
      WriteField(field, parts, names, text);
    }
  }
  return text;
}

Date DatePattern::Parse(std::string_view text, const DateNames& names) const {
  const auto unreadable = [text] {
    return Error(ErrorNumber::kTypeMismatch,
                 "\"" + std::string(text) + "\" is not a date in the locale's short format");
  };
  const std::vector<Number> numbers = NumbersIn(text, names);
  if (numbers.size() != 3) throw unreadable();

  int year = 0;
  int month = 0;
  int day = 0;
  std::size_t next = 0;
  for (const Field& field : fields_) {
    if (next == numbers.size()) break;
    const Number& number = numbers[next];
    if (number.digits > 4) throw unreadable();
    if (field.letter == 'd') {
      day = number.value;
    } else if (field.letter == 'M' || field.letter == 'L') {
      month = number.value;
    } else if (field.letter == 'y' || field.letter == 'u') {
      year = number.value;
      if (number.digits <= 2) year += year < 30 ? 2000 : 1900;
    } else {
      continue;
    }
    ++next;
  }
  try {
    return Date::FromYmd(year, month, day);
  } catch (const Error&) {
    throw unreadable();
  }
}

}  // namespace pstolvane1
