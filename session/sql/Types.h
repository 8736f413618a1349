// The dialect's type rules: which types may be combined, and the type of the result.
#pragma once

#include <optional>
#include <string>

#include "session/sql/Ast.h"
#include "session/sql/Catalog.h"

namespace pstolvane1::sql {

// The type of a value, and what else is known of it before it is there.
struct ValueType {
  Type type = Type::kNull;
  int size = 0;  // of a text: its characters at most, 0 where that is not known
  // Of a decimal: digits before and behind the point together, at most 38. Of a whole number that
  // stands in the text: its own digits, which count where it becomes a decimal.
  int digits = 0;
  int places = 0;         // of a decimal: digits behind the point
  bool has_time = false;  // of a date: it may have a time of day

  friend bool operator==(const ValueType&, const ValueType&) = default;
};

[[nodiscard]] ValueType TypeOfColumn(const CatalogColumn& column);
// "text", "money", "decimal(9,2)" as errors call it.
[[nodiscard]] std::string NameOf(const ValueType& type);

// Flags, whole and big whole numbers, money, decimals, singles, reals.
[[nodiscard]] bool IsNumber(Type type);

// A whole number, money or a decimal as the decimal that holds it.
[[nodiscard]] ValueType AsDecimal(const ValueType& exact);

// What two values become where they meet: in a comparison, as branches of a CASE, as columns of a
// UNION. The higher rank wins; Null takes the other's type. Empty when they cannot meet: a date and
// a number.
[[nodiscard]] std::optional<ValueType> CommonType(const ValueType& a, const ValueType& b);

// What + - * / % give, a text having become the other side's type before. Text for + of two texts,
// a 64-bit float for money with a single, and for a decimal of more figures than a single has, else
// the higher rank.
// Empty for what has no arithmetic: two flags, dates, two texts under another operator, % of
// anything but whole numbers.
[[nodiscard]] std::optional<ValueType> ArithmeticType(ArithmeticOp op, const ValueType& a,
                                                      const ValueType& b);

// The type that a CAST names: varchar(20), money, decimal(18, 4). Empty for one that cannot be cast
// to.
[[nodiscard]] std::optional<ValueType> TypeOfCast(const TypeName& name);

}  // namespace pstolvane1::sql
