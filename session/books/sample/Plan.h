// How large the sample books are, and the days that they cover.
#pragma once

#include <chrono>
#include <cstdint>

#include "session/books/Writer.h"

namespace pstolvane1::books::sample {

inline constexpr int kYears = 3;

// Accounting year 1 runs from 1 April 2003 to 31 March 2004.
[[nodiscard]] constexpr Day FirstDay(int year) {
  return Day(std::chrono::year(2002 + year) / std::chrono::April / 1);
}
[[nodiscard]] constexpr Day LastDay(int year) {
  return Day(std::chrono::year(2003 + year) / std::chrono::March / 31);
}
[[nodiscard]] constexpr int YearOf(Day day) {
  int year = 1;
  while (year < kYears && day > LastDay(year)) ++year;
  return year;
}

struct Plan {
  explicit constexpr Plan(std::int64_t movement_rows) : movements(movement_rows) {
    const std::int64_t small = movements < 1'000'000 ? movements : 1'000'000;
    const std::int64_t large = movements - small;
    parts = static_cast<int>(90 + small * 99 / 10'000 + large / 400);
    customers = static_cast<int>(60 + small / 250 + large / 1'000);
    suppliers = static_cast<int>(10 + small / 5'000 + large / 100'000);
    employees = static_cast<int>(6 + small / 50'000);
    mechanics = static_cast<int>(5 + small / 50'000);
  }

  std::int64_t movements;
  int parts, customers, suppliers, employees, mechanics;
};

}  // namespace pstolvane1::books::sample
