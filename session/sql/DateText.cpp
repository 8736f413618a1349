#include "session/sql/DateText.h"

#include <array>
#include <charconv>

namespace pstolvane1::sql {
namespace {

// Reads from left to right; a failed step leaves the rest as it was.
class Reader {
 public:
  explicit Reader(std::string_view text) : rest_(text) {}

  [[nodiscard]] bool AtEnd() const { return rest_.empty(); }
  bool Sign(char sign) {
    if (rest_.empty() || rest_.front() != sign) return false;
    rest_.remove_prefix(1);
    return true;
  }
  void Blanks() {
    while (Sign(' ')) {
    }
  }
  [[nodiscard]] std::string_view DigitRun() const {
    return rest_.substr(0, std::min(rest_.find_first_not_of("0123456789"), rest_.size()));
  }
  // A number of at least least and at most most digits, all that stand there.
  std::optional<int> Number(std::size_t least, std::size_t most) {
    const std::string_view digits = DigitRun();
    if (digits.size() < least || digits.size() > most) return std::nullopt;
    return Fixed(digits.size());
  }
  std::optional<int> Fixed(std::size_t digits) {
    if (DigitRun().size() < digits) return std::nullopt;
    int number = 0;
    std::from_chars(rest_.data(), rest_.data() + digits, number);
    rest_.remove_prefix(digits);
    return number;
  }
  // A word of letters, in any case; 'A' for AM, 'P' for PM, 0 for none.
  char HalfOfDay() {
    if (rest_.size() < 2 || (rest_[1] != 'M' && rest_[1] != 'm')) return 0;
    const char half = rest_[0] == 'a' || rest_[0] == 'A'   ? 'A'
                      : rest_[0] == 'p' || rest_[0] == 'P' ? 'P'
                                                           : '\0';
    if (half != 0) rest_.remove_prefix(2);
    return half;
  }
  std::string_view Take(std::size_t count) {
    const std::string_view taken = rest_.substr(0, count);
    rest_.remove_prefix(count);
    return taken;
  }

 private:
  std::string_view rest_;
};

bool IsDay(int year, int month, int day) {
  constexpr std::array kDays = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  if (year < 100 || month < 1 || month > 12 || day < 1) return false;
  const bool leap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
  const int last = kDays[static_cast<std::size_t>(month - 1)] + (month == 2 && leap ? 1 : 0);
  return day <= last;
}

std::string Padded(int number, std::size_t width) {
  std::string digits = std::to_string(number);
  return std::string(width - digits.size(), '0') + digits;
}

std::optional<std::string> ReadDay(Reader& reader) {
  std::optional<int> year, month, day;
  if (reader.DigitRun().size() == 8) {
    year = reader.Fixed(4), month = reader.Fixed(2), day = reader.Fixed(2);
  } else if (reader.DigitRun().size() == 4) {
    year = reader.Fixed(4);
    if (!reader.Sign('-')) return std::nullopt;
    month = reader.Number(1, 2);
    if (!reader.Sign('-')) return std::nullopt;
    day = reader.Number(1, 2);
  } else {
    month = reader.Number(1, 2);
    if (!reader.Sign('/')) return std::nullopt;
    day = reader.Number(1, 2);
    if (!reader.Sign('/')) return std::nullopt;
    year = reader.Number(4, 4);
  }
  if (!year || !month || !day || !IsDay(*year, *month, *day)) return std::nullopt;
  return Padded(*year, 4) + "-" + Padded(*month, 2) + "-" + Padded(*day, 2);
}

// What stands behind the day; "" for midnight.
std::optional<std::string> ReadTime(Reader& reader) {
  std::optional<int> hour = reader.Number(1, 2);
  if (!hour || !reader.Sign(':')) return std::nullopt;
  const std::optional<int> minute = reader.Fixed(2);
  std::optional<int> second = 0;
  std::string fraction;
  if (reader.Sign(':')) {
    second = reader.Fixed(2);
    if (second && reader.Sign('.')) {
      fraction = reader.Take(reader.DigitRun().size());
      if (fraction.empty()) return std::nullopt;
      fraction.erase(fraction.find_last_not_of('0') + 1);
    }
  }
  reader.Blanks();
  const char half = reader.HalfOfDay();
  if (!minute || !second || *minute > 59 || *second > 59) return std::nullopt;
  if (half != 0 && (*hour < 1 || *hour > 12)) return std::nullopt;
  if (half != 0) hour = *hour % 12 + (half == 'P' ? 12 : 0);
  if (*hour > 23) return std::nullopt;
  if (*hour == 0 && *minute == 0 && *second == 0 && fraction.empty()) return "";
  std::string time = " " + Padded(*hour, 2) + ":" + Padded(*minute, 2) + ":" + Padded(*second, 2);
  if (!fraction.empty()) time += "." + fraction;
  return time;
}

}  // namespace

std::optional<std::string> ReadDateText(std::string_view text) {
  Reader reader(text);
  reader.Blanks();
  if (reader.AtEnd()) return "1900-01-01";
  std::optional<std::string> day = ReadDay(reader);
  if (!day) return std::nullopt;
  const bool behind_t = reader.Sign('T') || reader.Sign('t');
  if (!behind_t) reader.Blanks();
  if (reader.AtEnd()) return behind_t ? std::nullopt : day;
  const std::optional<std::string> time = ReadTime(reader);
  reader.Blanks();
  if (!time || !reader.AtEnd()) return std::nullopt;
  return *day + *time;
}

}  // namespace pstolvane1::sql
