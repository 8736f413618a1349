// What an engine's own text for SQLite may call beyond what SQLite has: the SQLite emitter writes
// these names, and the SQLite engine registers every one of them on each connection.
#pragma once

#include <array>
#include <string_view>

namespace pstolvane1::sql {

// The collation of every comparison of texts: case and trailing blanks (U+0020) do not count, order
// is by code point of the lower-case text (Unicode simple case mapping). UTF-8.
inline constexpr std::string_view kTextCollation = "PST_TEXT";

struct SqliteFunction {
  std::string_view name;
  int arity;
  bool aggregate;
};

// All are deterministic, innocuous and take and give SQLite values. Unless told otherwise a Null
// among the arguments gives Null, and a number may come as integer or as real, whatever its type in
// the dialect: money, decimals, singles and reals are numbers, flags are integers, a date is a
// text. A date text is canonical as "yyyy-mm-dd" when it is midnight, else "yyyy-mm-dd hh:mm:ss"
// with a fraction of seconds behind, without trailing zeros, only if there is one; canonical texts
// compare in the order of their dates. A failure ends the statement with the error of the number
// named.
//
// Numbers
//   pst_money(x)            the nearest amount of four decimals, half to even, as
//                           Currency::FromDouble; an integer stays an integer. Error 6.
//   pst_round(x, n)         x to n decimals (n may be negative), half away from zero, decided on
//   its
//                           15 significant digits; real, or integer for an integer x and
//                           n >= 0.
//   pst_fits(x, bits)       x itself when it is an integer of that many bits (32 or 64), error 6
//   for
//                           anything else: whole arithmetic of SQLite that has left the integers.
//   pst_cut(x, bits)        a number to an integer of that many bits, cut toward zero. Error 6.
//   pst_nearest(x, bits)    the same, rounded half away from zero.
//   pst_div_whole(a, b, bits)  integers; cut toward zero. Error 11 when b is 0, 6 beyond the bits.
//   pst_mod(a, b)           integers; sign of a. Error 11 when b is 0.
//   pst_div_real(a, b)      in double, always real. Error 11 when b is 0.
//   pst_div_decimal(a, a_places, b, b_places, places)  a and b are read as decimals of their
//   places;
//                           the exact quotient, cut toward zero to places. Error 11, error 6.
// Texts into values. Blanks around do not count.
//   pst_text_whole(t, bits) sign and digits; an empty text is 0. Error 13, error 6.
//   pst_text_money(t)       sign, digits with commas, decimals beyond four rounded; an empty text
//   is
//                           0. Error 13, error 6.
//   pst_text_decimal(t, n)  sign, digits, decimals rounded to n. Error 13.
//   pst_text_real(t)        as a literal with or without exponent; an empty text is 0. Error 13.
//   pst_text_flag(t)        true, false (any case) or a whole number: 1 or 0. Error 13.
//   pst_text_date(t)        the canonical date of any form that ReadDateText reads. Error 13.
// Values into text of at most n characters
//   pst_whole_text(x, n)    "*" when it does not fit.
//   pst_money_text(x, n)    two decimals, half away from zero, no grouping. Error 6 when too long.
//   pst_decimal_text(x, places, n)  always that many decimals. Error 6 when too long.
//   pst_real_text(x, n)     at most six significant digits; with exponent ("1.23457e+006") from
//                           1e6 on and below 1e-4, else without trailing zeros. Error 6.
//   pst_date_text(x, has_time, n)   "yyyy-mm-dd"; with has_time 1 "Mar 31 2004  2:05PM", the day
//   and
//                           the hour two places wide, blank-filled. Cut to n characters.
// Dates
//   pst_date(x)             the canonical form of a stored ISO text ("T" or blank between, seconds
//                           and fraction optional). Error 13 for anything else.
//   pst_year(x) pst_month(x) pst_day(x)  of a stored ISO text. Error 13.
// Texts
//   pst_like(t, pattern) pst_like(t, pattern, escape)  the whole text against % _ [a-z] [^x]; case
//                           does not count, trailing blanks of t do not count, those of the pattern
//                           do. 1 or 0. Error 13 when escape is not one character.
//   pst_upper(t) pst_lower(t)  Unicode, of no locale.
// Aggregates; rows with Null are passed over, no row left gives Null
//   pst_sum_money(x)        every x as pst_money(x), summed exactly in ten-thousandths; real, or
//                           integer when the sum is a whole number. Error 6.
//   pst_sum_decimal(x, places)  the same in units of that many decimals. Error 6.
//   pst_only(x)             the value of the only row, which may be Null; no row gives Null, a
//   second
//                           row is error -2147217900 "a subquery that stands for a value gave more
//                           than one row".
inline constexpr std::array kSqliteFunctions = {
    SqliteFunction{"pst_money", 1, false},       SqliteFunction{"pst_round", 2, false},
    SqliteFunction{"pst_fits", 2, false},        SqliteFunction{"pst_cut", 2, false},
    SqliteFunction{"pst_nearest", 2, false},     SqliteFunction{"pst_div_whole", 3, false},
    SqliteFunction{"pst_mod", 2, false},         SqliteFunction{"pst_div_real", 2, false},
    SqliteFunction{"pst_div_decimal", 5, false}, SqliteFunction{"pst_text_whole", 2, false},
    SqliteFunction{"pst_text_money", 1, false},  SqliteFunction{"pst_text_decimal", 2, false},
    SqliteFunction{"pst_text_real", 1, false},   SqliteFunction{"pst_text_flag", 1, false},
    SqliteFunction{"pst_text_date", 1, false},   SqliteFunction{"pst_whole_text", 2, false},
    SqliteFunction{"pst_money_text", 2, false},  SqliteFunction{"pst_decimal_text", 3, false},
    SqliteFunction{"pst_real_text", 2, false},   SqliteFunction{"pst_date_text", 3, false},
    SqliteFunction{"pst_date", 1, false},        SqliteFunction{"pst_year", 1, false},
    SqliteFunction{"pst_month", 1, false},       SqliteFunction{"pst_day", 1, false},
    SqliteFunction{"pst_like", 2, false},        SqliteFunction{"pst_like", 3, false},
    SqliteFunction{"pst_upper", 1, false},       SqliteFunction{"pst_lower", 1, false},
    SqliteFunction{"pst_sum_money", 1, true},    SqliteFunction{"pst_sum_decimal", 2, true},
    SqliteFunction{"pst_only", 1, true},
};

}  // namespace pstolvane1::sql
