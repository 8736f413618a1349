// A day with a time of day, as the reports carry it.
#pragma once

#include <compare>
#include <optional>
#include <string>
#include <string_view>

#include "session/data/NeedsCpp20.h"

namespace pstolvane1 {

// Days since 30 December 1899 (serial 0), the time of day as fraction of a day, from year 100 to
// 9999. Before serial 0 the day counts down while the fraction still counts up from midnight:
// -1.25 is 29 December 1899, 06:00. Local civil time; no time zone is ever applied.
class Date {
 public:
  constexpr Date() = default;
  explicit constexpr Date(double serial) : serial_(serial) {}

  // Error 13 for a day that the calendar does not have.
  [[nodiscard]] static Date FromYmd(int year, int month, int day);
  [[nodiscard]] static Date FromYmdHms(int year, int month, int day, int hour, int minute,
                                       int second);
  // "2004-03-31", "2004-03-31 14:05:09" or with "T" between and a fraction of seconds behind; empty
  // when the text is anything else.
  [[nodiscard]] static std::optional<Date> FromIso(std::string_view text) noexcept;

  struct Parts {
    int year, month, day, hour, minute, second;
  };
  [[nodiscard]] constexpr double Serial() const { return serial_; }
  // The days that lie between serial 0 and this moment, which unlike the serial always grow with
  // time: -1.25 is -0.75. What orders dates; -0.5 and 0.5 are the same moment.
  [[nodiscard]] double Elapsed() const;
  // The time is rounded to the second.
  [[nodiscard]] Parts ToParts() const;
  [[nodiscard]] bool HasTime() const;
  // "2004-03-31", with " 14:05:09" only if there is a time.
  [[nodiscard]] std::string ToIso() const;

  // Earlier is less.
  friend std::partial_ordering operator<=>(Date a, Date b) { return a.Elapsed() <=> b.Elapsed(); }
  friend bool operator==(Date a, Date b) { return a.Elapsed() == b.Elapsed(); }

 private:
  double serial_ = 0;
};

}  // namespace pstolvane1
