#include "session/data/Date.h"

#include <chrono>
#include <cmath>

#include "session/data/Error.h"
#include "session/data/Number.h"

namespace pstolvane1 {

namespace {

using std::chrono::sys_days;
using std::chrono::year_month_day;

constexpr int kDayOf1970 = 25569;
constexpr int kSecondsOfDay = 86400;
constexpr int kFirstYear = 100;
constexpr int kLastYear = 9999;

std::optional<int> DayOf(int year, int month, int day) {
  if (year < kFirstYear || year > kLastYear || month < 1 || month > 12 || day < 1 || day > 31) {
    return std::nullopt;
  }
  const year_month_day date{std::chrono::year(year),
                            std::chrono::month(static_cast<unsigned>(month)),
                            std::chrono::day(static_cast<unsigned>(day))};
  if (!date.ok()) return std::nullopt;
  return kDayOf1970 + static_cast<int>(sys_days(date).time_since_epoch().count());
}

std::optional<double> SecondOf(int hour, int minute, double second) {
  if (hour < 0 || hour > 23 || minute < 0 || minute > 59 || !(second >= 0 && second < 60)) {
    return std::nullopt;
  }
  return hour * 3600 + minute * 60 + second;
}

Date Join(int day, double second) {
  const double time = second / kSecondsOfDay;
  return Date(day < 0 ? day - time : day + time);
}

// A day and the seconds since its midnight, rounded.
struct Moment {
  int day;
  int second;
};

Moment MomentOf(double serial) {
  constexpr double kFirstDay = -657434;  // 1 January 100
  constexpr double kLastDay = 2958465;   // 31 December 9999
  // The last half second of the last day would round to a day that is not there.
  constexpr double kHalfSecond = 0.5 / kSecondsOfDay;
  if (!(serial > kFirstDay - 1 && serial < kLastDay + 1 - kHalfSecond)) {
    throw Error(ErrorNumber::kOverflow,
                TextOf(serial) + " days from 30 December 1899 lie outside the years 100 to 9999");
  }
  const double day = std::trunc(serial);
  const int second = static_cast<int>(std::lround(std::abs(serial - day) * kSecondsOfDay));
  const int carry = second / kSecondsOfDay;
  return {static_cast<int>(day) + carry, second - carry * kSecondsOfDay};
}

// Reads the digits of a text in fixed places.
class IsoReader {
 public:
  explicit IsoReader(std::string_view text) : text_(text) {}

  int Digits(std::size_t count) {
    int number = 0;
    for (std::size_t i = 0; i < count; ++i, ++at_) {
      if (at_ >= text_.size() || text_[at_] < '0' || text_[at_] > '9') {
        good_ = false;
        return 0;
      }
      number = number * 10 + (text_[at_] - '0');
    }
    return number;
  }
  bool Takes(char c) {
    if (at_ >= text_.size() || text_[at_] != c) return false;
    ++at_;
    return true;
  }
  void Sign(char c) { good_ = Takes(c) && good_; }
  // The digits behind a point; at least one.
  double Fraction() {
    double number = 0;
    double place = 1;
    const std::size_t start = at_;
    for (; at_ < text_.size() && text_[at_] >= '0' && text_[at_] <= '9'; ++at_) {
      place *= 10;
      number = number * 10 + (text_[at_] - '0');
    }
    good_ = good_ && at_ > start && at_ - start < 16;
    return number / place;
  }
  [[nodiscard]] bool AtEnd() const { return at_ == text_.size(); }
  [[nodiscard]] bool Good() const { return good_; }

 private:
  std::string_view text_;
  std::size_t at_ = 0;
  bool good_ = true;
};

std::string TwoDigits(int number) {
  return {static_cast<char>('0' + number / 10), static_cast<char>('0' + number % 10)};
}

}  // namespace

Date Date::FromYmd(int year, int month, int day) { return FromYmdHms(year, month, day, 0, 0, 0); }

Date Date::FromYmdHms(int year, int month, int day, int hour, int minute, int second) {
  const std::optional<int> number = DayOf(year, month, day);
  const std::optional<double> time = SecondOf(hour, minute, second);
  if (!number || !time) {
    throw Error(
        ErrorNumber::kTypeMismatch,
        "the calendar has no " + (number ? "time " + std::to_string(hour) + ":" +
                                               std::to_string(minute) + ":" + std::to_string(second)
                                         : "day " + std::to_string(year) + "-" +
                                               std::to_string(month) + "-" + std::to_string(day)));
  }
  return Join(*number, *time);
}

std::optional<Date> Date::FromIso(std::string_view text) noexcept {
  IsoReader reader(text);
  const int year = reader.Digits(4);
  reader.Sign('-');
  const int month = reader.Digits(2);
  reader.Sign('-');
  const int day = reader.Digits(2);
  std::optional<double> time = 0.0;
  if (reader.Good() && !reader.AtEnd()) {
    if (!reader.Takes('T')) reader.Sign(' ');
    const int hour = reader.Digits(2);
    reader.Sign(':');
    const int minute = reader.Digits(2);
    reader.Sign(':');
    const double second = reader.Digits(2);
    time = SecondOf(hour, minute, reader.Takes('.') ? second + reader.Fraction() : second);
  }
  const std::optional<int> number = DayOf(year, month, day);
  if (!reader.Good() || !reader.AtEnd() || !number || !time) return std::nullopt;
  return Join(*number, *time);
}

double Date::Elapsed() const {
  if (serial_ >= 0) return serial_;
  const double day = std::trunc(serial_);
  return day + (day - serial_);
}

Date::Parts Date::ToParts() const {
  const Moment moment = MomentOf(serial_);
  const year_month_day date{sys_days(std::chrono::days(moment.day - kDayOf1970))};
  return {static_cast<int>(date.year()),
          static_cast<int>(static_cast<unsigned>(date.month())),
          static_cast<int>(static_cast<unsigned>(date.day())),
          moment.second / 3600,
          moment.second / 60 % 60,
          moment.second % 60};
}

bool Date::HasTime() const { return MomentOf(serial_).second != 0; }

std::string Date::ToIso() const {
  const Parts parts = ToParts();
  std::string text = TwoDigits(parts.year / 100) + TwoDigits(parts.year % 100) + "-" +
                     TwoDigits(parts.month) + "-" + TwoDigits(parts.day);
  if (parts.hour != 0 || parts.minute != 0 || parts.second != 0) {
    text +=
        " " + TwoDigits(parts.hour) + ":" + TwoDigits(parts.minute) + ":" + TwoDigits(parts.second);
  }
  return text;
}

}  // namespace pstolvane1
