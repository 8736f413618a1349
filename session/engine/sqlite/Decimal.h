// Decimal places of numbers that SQLite keeps in binary.
#pragma once

#include <cstdint>
#include <optional>

namespace pstolvane1::sqlite {

__extension__ using Int128 = __int128;

// 10 to the power of n, n from 0 to 38.
[[nodiscard]] Int128 PowerOfTen(int n);

// The whole number of units of that many decimal places that is nearest to x: 2.345 of 2 places is
// 234 or 235 as its binary value lies. Empty beyond 38 digits.
[[nodiscard]] std::optional<Int128> UnitsOf(double x, int places);

// The double nearest to units of that many places.
[[nodiscard]] double FromUnits(Int128 units, int places);

// x to n decimal places (before the point where n is negative), half away from zero, decided on its
// 15 significant decimal digits: 2.675 to 2 is 2.68, although its binary value is a little less.
[[nodiscard]] double RoundDecimal(double x, int n);

}  // namespace pstolvane1::sqlite
