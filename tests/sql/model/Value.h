// Values of the model and the dialect's arithmetic on them, from its public rules and without any
// of the front end's own code: whole numbers, money and decimals are exact integers here.
#pragma once

#include <string>

#include "session/sql/Ast.h"
#include "session/sql/Catalog.h"

namespace pstolvane1::sql::model {

__extension__ using Int128 = __int128;

// What is known of a value before it is there.
struct Kind {
  Type type = Type::kNull;
  // Of decimals; digits also of a whole number that is written out: such a one needs no more where
  // it becomes a decimal.
  int digits = 0;
  int places = 0;
  int size = 0;       // of texts: the most characters
  bool timed = true;  // of dates: with a time of day
};

// Its Kind says which member holds it. exact: a flag, a whole number, ten-thousandths of money, a
// decimal without its point, a date's milliseconds since 1 January 1970. real: a single, a real.
struct Value {
  bool null = true;
  Int128 exact = 0;
  double real = 0;
  std::string text;

  static Value Exact(Int128 number) { return {false, number, 0, {}}; }
  static Value Real(double number) { return {false, 0, number, {}}; }
  static Value Text(std::string letters) { return {false, 0, 0, std::move(letters)}; }
};

inline constexpr Int128 kMillisecondsOfDay = 86'400'000;

// "2003-12-31", "2003-12-31 18:30:00" and "12/31/2003", blanks around them; error 13.
[[nodiscard]] Value DateFromText(const std::string& text);

// "2003-12-31", with " 18:30:00" behind it only if there is a time.
[[nodiscard]] std::string IsoText(const Value& date);

// The same kind, a written number having become a number like any other.
[[nodiscard]] Kind Plain(const Kind& kind);
// The kind that two values become where they meet.
[[nodiscard]] Kind Common(const Kind& a, const Kind& b);
[[nodiscard]] Kind KindOfArithmetic(ArithmeticOp op, const Kind& a, const Kind& b);
// A whole number, money or a flag as the decimal that holds it.
[[nodiscard]] Kind AsDecimal(const Kind& kind);

// Null stays Null. A text that becomes a day loses its time. Errors 6 and 13 as a CAST has them.
[[nodiscard]] Value Convert(const Value& value, const Kind& from, const Kind& to);
// Null with anything is Null. Errors 6 and 11.
[[nodiscard]] Value Compute(ArithmeticOp op, const Value& a, const Kind& kind_a, const Value& b,
                            const Kind& kind_b);
[[nodiscard]] Value Negate(const Value& value, const Kind& kind);
// The value if its kind can hold it, else error 6.
[[nodiscard]] Value Fitting(Int128 number, const Kind& kind);
// number / divisor, cut toward zero or rounded half away from it.
[[nodiscard]] Int128 Rounded(Int128 number, Int128 divisor);
[[nodiscard]] Int128 PowerOfTen(int exponent);
[[nodiscard]] double ToDouble(const Value& number, const Kind& kind);

// Below, equal, above: -1, 0, 1. Null is below all and equal to Null, as rows are sorted and
// grouped.
[[nodiscard]] int Order(const Value& a, const Value& b, const Kind& kind);
// What counts of a text in a comparison: its lower case without trailing blanks.
[[nodiscard]] std::string Folded(const std::string& text);
// Case does not count; blanks at the end of the text that the pattern leaves over do not count.
[[nodiscard]] bool IsLike(const std::string& text, const std::string& pattern, char escape);

}  // namespace pstolvane1::sql::model
