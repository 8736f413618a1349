// What the SQLite emitter may call beyond what SQLite has: it writes these names, and the SQLite
// engine registers every one of them on each connection.
#pragma once

#include <string_view>

namespace pstolvane1::sql {

// The collation of every comparison of texts: case and trailing blanks (U+0020) do not count, the
// order is by code point of the lower-case text (Unicode simple case mapping). UTF-8.
inline constexpr std::string_view kTextCollation = "PST_TEXT";

struct SqliteFunction {
  std::string_view name;
  int arity;
  bool aggregate = false;
};

// All are deterministic and innocuous. Unless told otherwise a Null among the arguments gives Null.
// A number may come as integer or as real, whatever its type in the dialect: money, decimals,
// singles and reals are numbers, a flag is an integer, a date is a text. A date's canonical text is
// "yyyy-mm-dd" when it is midnight, else "yyyy-mm-dd hh:mm:ss", with a fraction of seconds behind,
// without trailing zeros, only if there is one; canonical texts compare as their dates do. A
// failure ends the statement with the error whose number is named.
inline constexpr SqliteFunction kSqliteFunctions[] = {
    // --- Numbers
    // (x): the nearest amount of four decimals, half to even, as Currency::FromDouble; an integer
    // stays an integer. Error 6.
    {"pst_money", 1},
    // (x): x itself, a float. Error 6 for an infinite one: arithmetic that has left its range.
    {"pst_finite", 1},
    // (x, n): x, taken to 15 significant digits, to n decimals, half away from zero; n may be
    // negative. Real, or integer for an integer x.
    {"pst_round", 2},
    // (x, digits, places): pst_round(x, places); error 6 for more than digits - places digits
    // before
    // the point.
    {"pst_decimal", 3},
    // (x, bits): x itself when it is an integer of that many bits (32 or 64), otherwise error 6:
    // whole arithmetic that has left its range.
    {"pst_fits", 2},
    // (x, bits): a number to an integer of that many bits, cut toward zero. Error 6.
    {"pst_cut", 2},
    // (x, bits): a number, taken to 15 significant digits, to an integer of that many bits, half
    // away from zero. Error 6.
    {"pst_nearest", 2},
    // (a, b, bits): integers; the quotient cut toward zero. Error 11 when b is 0, error 6 beyond
    // the bits.
    {"pst_div_whole", 3},
    // (a, b): integers; the remainder has the sign of a. Error 11 when b is 0.
    {"pst_mod", 2},
    // (a, b): the quotient in double, always real. Error 11 when b is 0.
    {"pst_div_real", 2},
    // (a, a_places, b, b_places, places): a and b are read as decimals of their places; the exact
    // quotient, cut toward zero to places, as real. Error 11 when b is 0, error 6.
    {"pst_div_decimal", 5},

    // --- Texts into values; blanks around do not count
    // (t, bits): sign and digits; an empty text is 0. Error 13, error 6 beyond the bits.
    {"pst_text_whole", 2},
    // (t): sign, digits, commas between them, decimals rounded to four half away from zero; an
    // empty text is 0. Error 13, error 6.
    {"pst_text_money", 1},
    // (t, n): sign, digits, decimals rounded to n half away from zero. Error 13.
    {"pst_text_decimal", 2},
    // (t): sign, digits, decimals, exponent; an empty text is 0. Error 13.
    {"pst_text_real", 1},
    // (t): true or false in any case, or a whole number: 1 or 0. Error 13.
    {"pst_text_flag", 1},
    // (t): the canonical text of what ReadDateText reads. Error 13.
    {"pst_text_date", 1},

    // --- Values into texts of at most n characters
    // (x, n): "*" when it does not fit.
    {"pst_whole_text", 2},
    // (x, n): two decimals, half away from zero, no grouping. Error 6 when it does not fit.
    {"pst_money_text", 2},
    // (x, places, n): always that many decimals. Error 6 when it does not fit.
    {"pst_decimal_text", 3},
    // (x, n): at most six significant digits, without trailing zeros; from 1e6 on and below 1e-4
    // with an exponent of three digits, "1.23457e+006". Error 6 when it does not fit.
    {"pst_real_text", 2},
    // (x, has_time, n): "2004-03-31"; with has_time 1 "Mar 31 2004  2:05PM", day and hour filled
    // with a blank to two places. Cut to n characters.
    {"pst_date_text", 3},

    // --- Dates
    // (x): the canonical form of a stored ISO text (blank or T between; seconds and their fraction
    // may lack). Error 13 for anything else.
    {"pst_date", 1},
    // (x): of a stored ISO text. Error 13.
    {"pst_year", 1},
    // (x): 1 to 12, likewise.
    {"pst_month", 1},
    // (x): 1 to 31, likewise.
    {"pst_day", 1},

    // --- Texts
    // (t, pattern): 1 when the whole text is of the pattern, of % _ [a-z] [^x], otherwise 0. Case
    // does not count; trailing blanks of t do not count, those of the pattern do.
    {"pst_like", 2},
    // (t, pattern, escape): the same; the sign behind an escape stands for itself. Error 13 when
    // escape is not one character.
    {"pst_like", 3},
    // (t): Unicode, of no locale.
    {"pst_upper", 1},
    // (t): likewise.
    {"pst_lower", 1},

    // --- Aggregates: rows with Null are passed over, and no row gives Null
    // (x): the exact sum of every pst_money(x); integer when it is whole, otherwise real. Error 6.
    {"pst_sum_money", 1, true},
    // (x): the sum of floats, to the 13th figure of the sum of their sizes, so that it does not
    // depend
    // on their order; whole from 1e13 on. The only one that is not 0 stays what it is.
    {"pst_sum_real", 1, true},
    // (x): that sum through the count.
    {"pst_average_real", 1, true},
    // (x, places): the exact sum of every x rounded to so many decimals. Error 6.
    {"pst_sum_decimal", 2, true},
    // (x): the value, Null or not, of the only row; a second row is error -2147217900 "a subquery
    // that stands for a value gave more than one row".
    {"pst_only", 1, true},
};

}  // namespace pstolvane1::sql
