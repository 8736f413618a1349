#include <algorithm>

#include "session/sql/SqliteEmitter.h"

namespace pstolvane1::sql {
namespace {

// The length of a text that a number becomes where none is told.
constexpr int kTextOfNumber = 30;

// Texts that a whole number of the type never outgrows.
int LongestWhole(Type type) { return type == Type::kBigWhole ? 20 : 11; }

}  // namespace

SqliteText SqliteEmitter::ConvertText(const bound::Convert& node, const ValueType& type) {
  const bound::Expr& operand = *node.operand;
  const Type from = operand.type.type;
  switch (type.type) {
    case Type::kNull:
      return Value(operand);
    case Type::kText:
      return ToText(operand, type);
    case Type::kFlag:
      if (from == Type::kText) return SqliteCall("pst_text_flag", {Value(operand).text});
      if (from == Type::kFlag) return Value(operand);
      return {
          Bracketed(Settled(operand), SqliteBinding::kAdd) + " <> 0", SqliteBinding::kCompare, {}};
    case Type::kWhole:
    case Type::kBigWhole:
      return ToWhole(operand, type);
    case Type::kMoney: {
      if (from == Type::kText) return SqliteCall("pst_text_money", {Value(operand).text});
      if (from == Type::kBigWhole) return SqliteCall("pst_money", {Settled(operand).text});
      if (from < Type::kBigWhole) return Settled(operand);
      SqliteText text = Value(operand);
      if (from > Type::kMoney) text.state.form = SqliteForm::kRaw;
      return text;
    }
    case Type::kDecimal:
      return ToDecimal(node, type);
    case Type::kSingle:
    case Type::kReal: {
      SqliteState real;
      real.real = true;
      if (from == Type::kText) return SqliteCall("pst_text_real", {Value(operand).text}, real);
      SqliteText text = Settled(operand);
      text.state = {SqliteForm::kSettled, text.state.real, 0, 0};
      return text;
    }
    case Type::kDate: {
      const bool cut = !type.has_time;
      if (from == Type::kDate) {
        if (!cut || !operand.type.has_time) return Value(operand);
        return SqliteCall("substr", {Value(operand).text, "1", "10"});
      }
      SqliteText text = SqliteCall("pst_text_date", {Value(operand).text});
      return cut ? SqliteCall("substr", {text.text, "1", "10"}) : text;
    }
  }
  return Value(operand);
}

SqliteText SqliteEmitter::ToText(const bound::Expr& operand, const ValueType& type) {
  const ValueType& from = operand.type;
  const SqliteText value = Settled(operand);
  const std::string size = std::to_string(type.size == 0 ? kTextOfNumber : type.size);
  switch (from.type) {
    case Type::kFlag:
      return SqliteCall("CAST", {value.text + " AS TEXT"});
    case Type::kWhole:
    case Type::kBigWhole:
      if (type.size == 0 || type.size >= LongestWhole(from.type)) {
        return SqliteCall("CAST", {value.text + " AS TEXT"});
      }
      return SqliteCall("pst_whole_text", {value.text, size});
    case Type::kMoney:
      return SqliteCall("pst_money_text", {value.text, size});
    case Type::kDecimal:
      return SqliteCall("pst_decimal_text", {value.text, std::to_string(from.places), size});
    case Type::kSingle:
    case Type::kReal:
      return SqliteCall("pst_real_text", {value.text, size});
    case Type::kDate:
      return SqliteCall("pst_date_text", {value.text, from.has_time ? "1" : "0", size});
    default:
      break;
  }
  const bool cut = type.size != 0 && (from.size == 0 || from.size > type.size);
  return cut ? SqliteCall("substr", {value.text, "1", size}) : value;
}

SqliteText SqliteEmitter::ToWhole(const bound::Expr& operand, const ValueType& type) {
  const std::string bits = std::to_string(BitsOf(type.type));
  const SqliteState whole = WholeState(type);
  switch (operand.type.type) {
    case Type::kText:
      return SqliteCall("pst_text_whole", {Value(operand).text, bits}, whole);
    case Type::kMoney:
      return SqliteCall("pst_nearest", {Settled(operand).text, bits}, whole);
    case Type::kDecimal:
    case Type::kSingle:
    case Type::kReal:
      return SqliteCall("pst_cut", {Settled(operand).text, bits}, whole);
    default:
      break;
  }
  SqliteText text = Settled(operand);
  const Type from = operand.type.type;
  if (from == Type::kFlag) {
    text.state.high = 1;
  } else if (from == Type::kBigWhole && type.type == Type::kWhole) {
    text.state.form = SqliteForm::kRaw;
  }
  return text;
}

SqliteText SqliteEmitter::ToDecimal(const bound::Convert& node, const ValueType& type) {
  const bound::Expr& operand = *node.operand;
  const Type from = operand.type.type;
  if (from == Type::kText) {
    SqliteText text =
        SqliteCall("pst_text_decimal", {Value(operand).text, std::to_string(type.places)});
    if (!node.cast) return text;
    return SqliteCall("pst_decimal",
                      {text.text, std::to_string(type.digits), std::to_string(type.places)});
  }
  const ValueType exact = AsDecimal(operand.type);
  const bool fits = from < Type::kSingle && exact.places <= type.places &&
                    exact.digits - exact.places <= type.digits - type.places;
  SqliteText value = Settled(operand);
  value.state = {SqliteForm::kSettled, value.state.real, 0, 0};
  if (fits) return value;
  return SqliteCall("pst_decimal",
                    {value.text, std::to_string(type.digits), std::to_string(type.places)});
}

}  // namespace pstolvane1::sql
