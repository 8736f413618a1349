#include "session/sql/Types.h"

#include <algorithm>

#include "session/sql/Names.h"

namespace pstolvane1::sql {
namespace {

constexpr int kMostDigits = 38;

ValueType Decimal(int digits, int places) {
  ValueType type{Type::kDecimal};
  // What leads before the point is kept, down to six places behind it.
  if (digits > kMostDigits) {
    places = std::max(std::min(places, kMostDigits - (digits - places)), std::min(places, 6));
    digits = kMostDigits;
  }
  type.digits = digits;
  type.places = places;
  return type;
}

ValueType DecimalResult(ArithmeticOp op, const ValueType& a, const ValueType& b) {
  const int places = std::max(a.places, b.places);
  switch (op) {
    case ArithmeticOp::kMultiply:
      return Decimal(a.digits + b.digits + 1, a.places + b.places);
    case ArithmeticOp::kDivide: {
      const int kept = std::max(6, a.places + b.digits + 1);
      return Decimal(a.digits - a.places + b.places + kept, kept);
    }
    default:
      return Decimal(std::max(a.digits - a.places, b.digits - b.places) + places + 1, places);
  }
}

}  // namespace

ValueType TypeOfColumn(const CatalogColumn& column) {
  ValueType type;
  type.type = column.type;
  type.size = column.size;
  type.digits = column.digits;
  type.places = column.places;
  type.has_time = column.date_has_time;
  return type;
}

std::string NameOf(const ValueType& type) { return std::string(NameOf(type.type)); }

bool IsNumber(Type type) { return type >= Type::kFlag && type <= Type::kReal; }

ValueType AsDecimal(const ValueType& exact) {
  switch (exact.type) {
    case Type::kFlag:
      return Decimal(1, 0);
    case Type::kWhole:
      return Decimal(exact.digits == 0 ? 10 : exact.digits, 0);
    case Type::kBigWhole:
      return Decimal(19, 0);
    case Type::kMoney:
      return Decimal(19, 4);
    default:
      return exact;
  }
}

std::optional<ValueType> CommonType(const ValueType& a, const ValueType& b) {
  if (a.type > b.type) return CommonType(b, a);
  if (a.type == Type::kNull) return b;
  if (b.type == Type::kDate && IsNumber(a.type)) return std::nullopt;
  ValueType common = b;
  if (b.type == Type::kWhole) common.digits = 0;
  if (b.type == Type::kText)
    common.size = a.size == 0 || b.size == 0 ? 0 : std::max(a.size, b.size);
  if (b.type == Type::kDate && a.type == Type::kDate) common.has_time = a.has_time || b.has_time;
  if (b.type == Type::kDecimal && IsNumber(a.type)) {
    const ValueType other = AsDecimal(a);
    const int places = std::max(other.places, b.places);
    common = Decimal(std::max(other.digits - other.places, b.digits - b.places) + places, places);
  }
  return common;
}

std::optional<ValueType> ArithmeticType(ArithmeticOp op, const ValueType& a, const ValueType& b) {
  if (a.type > b.type) {
    // Only the places of a quotient depend on the order, and those are of decimals.
    if (b.type != Type::kDecimal && a.type != Type::kDecimal) return ArithmeticType(op, b, a);
  }
  const Type high = std::max(a.type, b.type);
  const Type low = std::min(a.type, b.type);
  if (high == Type::kNull) return ValueType{Type::kWhole};
  if (high == Type::kText) {
    if (op != ArithmeticOp::kAdd) return std::nullopt;
    ValueType text{Type::kText};
    text.size = a.size == 0 || b.size == 0 ? 0 : a.size + b.size;
    return text;
  }
  if (high == Type::kDate || (high == Type::kFlag && low != Type::kNull)) return std::nullopt;
  if (high == Type::kFlag) return ValueType{Type::kWhole};
  if (op == ArithmeticOp::kModulo && high > Type::kBigWhole) return std::nullopt;
  if (high == Type::kDecimal && IsNumber(low)) {
    return DecimalResult(op, AsDecimal(a), AsDecimal(b));
  }
  // An amount has more figures than the seven of a 32-bit float, so that a quantity times a rate is
  // wider than the dialect's model makes it.
  constexpr int kFiguresOfSingle = 7;
  const ValueType& lower = a.type == low ? a : b;
  const bool amount =
      low == Type::kMoney || (low == Type::kDecimal && lower.digits > kFiguresOfSingle);
  if (high == Type::kSingle && amount) return ValueType{Type::kReal};
  ValueType result = a.type == high ? a : b;
  if (high == Type::kWhole) result.digits = 0;
  return result;
}

// Types of the server that are narrower than ours are not among them, nor texts that are filled
// with blanks: a cast to one of them would have another meaning.
std::optional<ValueType> TypeOfCast(const TypeName& name) {
  constexpr std::string_view kCasts[] = {
      "bit",  "int",   "integer",          "bigint", "money",    "decimal",   "dec",     "numeric",
      "real", "float", "double precision", "date",   "datetime", "datetime2", "varchar", "nvarchar",
  };
  const std::string word = FoldedName(name.name.text);
  if (std::ranges::find(kCasts, word) == std::end(kCasts)) return std::nullopt;
  const std::string size = name.size ? "(" + std::to_string(*name.size) + ")" : "";
  ValueType type = TypeOfColumn(ColumnOfDeclaration("", word + size).value());
  if (word == "decimal" || word == "dec" || word == "numeric") {
    type = Decimal(name.size.value_or(18), name.scale.value_or(0));
  }
  // A length that is not told is 30 here, whatever it is in a table.
  if (type.type == Type::kText && !name.size) type.size = 30;
  return type;
}

}  // namespace pstolvane1::sql
