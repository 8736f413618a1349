#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>

#include "session/sql/SqliteEmitter.h"
#include "session/sql/SqliteFunctions.h"

namespace pstolvane1::sql {
namespace {

SqliteText LiteralText(const bound::Literal& literal, Type type) {
  if (literal.is_null) return {"NULL", SqliteBinding::kSingle, {SqliteForm::kSettled, true, 0, 0}};
  if (type == Type::kText || type == Type::kDate) {
    return {QuotedText(literal.text), SqliteBinding::kSingle, {}};
  }
  SqliteText text{literal.text, SqliteBinding::kSingle, {}};
  text.state.real = literal.text.find_first_of(".eE") != std::string::npos;
  text.state.low = text.state.high = IsWhole(type) ? std::stod(literal.text) : 0;
  if (IsFloat(type)) text.state.reach = std::fabs(std::strtod(literal.text.c_str(), nullptr));
  return text;
}

}  // namespace

std::string Bracketed(const SqliteText& value, SqliteBinding at_least) {
  return value.binding < at_least ? "(" + value.text + ")" : value.text;
}

SqliteText SqliteCall(std::string_view name, const std::vector<std::string>& arguments,
                      const SqliteState& state) {
  std::string text(name);
  const char* separator = "(";
  for (const std::string& argument : arguments) {
    text += separator + argument;
    separator = ", ";
  }
  return {text + ")", SqliteBinding::kSingle, state};
}

SqliteState Merged(const SqliteState& a, const SqliteState& b) {
  return {std::max(a.form, b.form), a.real && b.real, std::min(a.low, b.low),
          std::max(a.high, b.high), std::max(a.reach, b.reach)};
}

bool IsFloat(Type type) { return type == Type::kSingle || type == Type::kReal; }

double ReachOf(const SqliteText& value, const ValueType& type) {
  switch (type.type) {
    case Type::kWhole:
    case Type::kBigWhole:
      return std::max(std::fabs(value.state.low), std::fabs(value.state.high));
    case Type::kMoney:
      return 922337203685477.5807;
    case Type::kDecimal:
      return std::pow(10.0, type.digits - type.places);
    default:
      return value.state.reach;
  }
}

bool IsWhole(Type type) { return type == Type::kWhole || type == Type::kBigWhole; }

int BitsOf(Type type) { return type == Type::kBigWhole ? 64 : 32; }

SqliteState WholeState(const ValueType& type) {
  SqliteState state;
  if (type.type == Type::kWhole) {
    state.low = std::numeric_limits<std::int32_t>::min();
    state.high = std::numeric_limits<std::int32_t>::max();
  } else if (type.type == Type::kBigWhole) {
    state.low = -0x1p63;
    state.high = 0x1p63;
  }
  return state;
}

SqliteText SettledText(SqliteText value, const ValueType& type) {
  if (value.state.form == SqliteForm::kSettled) return value;
  const SqliteState settled = WholeState(type);
  switch (type.type) {
    case Type::kFlag:
      return {Bracketed(value, SqliteBinding::kAdd) + " <> 0", SqliteBinding::kCompare, settled};
    case Type::kWhole:
    case Type::kBigWhole:
      return SqliteCall("pst_fits", {value.text, std::to_string(BitsOf(type.type))}, settled);
    case Type::kMoney:
      return SqliteCall("pst_money", {value.text});
    case Type::kDecimal:
      return SqliteCall("pst_round", {value.text, std::to_string(type.places)});
    case Type::kDate:
      return SqliteCall("pst_date", {value.text});
    case Type::kSingle:
    case Type::kReal:
      return SqliteCall("pst_finite", {value.text}, {SqliteForm::kSettled, value.state.real, 0, 0});
    default:
      return value;
  }
}

SqliteText SqliteEmitter::Settled(const bound::Expr& value) {
  return SettledText(Value(value), value.type);
}

SqliteText SqliteEmitter::Rounded(const bound::Expr& value) {
  SqliteText text = Value(value);
  return text.state.form == SqliteForm::kNoise ? text : SettledText(std::move(text), value.type);
}

SqliteText SqliteEmitter::Compared(const bound::Expr& value) {
  SqliteText text = Settled(value);
  if (value.type.type != Type::kText) return text;
  text.text = Bracketed(text, SqliteBinding::kSingle) + " COLLATE " + std::string(kTextCollation);
  text.binding = SqliteBinding::kSign;
  return text;
}

SqliteText SqliteEmitter::Value(const bound::Expr& value) {
  if (const auto* literal = value.As<bound::Literal>()) {
    return LiteralText(*literal, value.type.type);
  }
  if (const auto* column = value.As<bound::Column>()) return ColumnText(*column, value.type);
  if (const auto* negate = value.As<bound::Negate>()) {
    const SqliteText operand = Value(*negate->operand);
    const bool sign = operand.text.front() == '-';
    SqliteState state = operand.state;
    state.low = -operand.state.high;
    state.high = -operand.state.low;
    if (IsWhole(value.type.type) && state.high > WholeState(value.type).high) {
      state.form = SqliteForm::kRaw;
    }
    return {"-" + (sign ? "(" + operand.text + ")" : Bracketed(operand, SqliteBinding::kSingle)),
            SqliteBinding::kSign, state};
  }
  if (const auto* node = value.As<bound::Arithmetic>()) return ArithmeticText(*node, value.type);
  if (const auto* node = value.As<bound::Concat>()) {
    return {Bracketed(Value(*node->left), SqliteBinding::kConcat) + " || " +
                Bracketed(Value(*node->right), SqliteBinding::kSign),
            SqliteBinding::kConcat,
            {}};
  }
  if (const auto* call = value.As<bound::Call>()) return CallText(*call, value.type);
  if (const auto* node = value.As<bound::Aggregate>()) return AggregateText(*node, value.type);
  if (const auto* node = value.As<bound::Convert>()) return ConvertText(*node, value.type);
  if (const auto* node = value.As<bound::Case>()) return CaseText(*node);
  return SubqueryText(*std::get<bound::ScalarSubquery>(value.node).query);
}

SqliteText SqliteEmitter::ColumnText(const bound::Column& column, const ValueType&) {
  const bound::Source& source = *column.source;
  return {QuotedName(source.name) + "." + QuotedName(source.columns[column.index].name),
          SqliteBinding::kSingle, states_.at(&source)[column.index]};
}

SqliteText SqliteEmitter::CaseText(const bound::Case& node) {
  SqliteText text{"CASE", SqliteBinding::kSingle, {}};
  if (node.operand) text.text += " " + Compared(*node.operand).text;
  bool first = true;
  const auto add = [&](std::string_view word, const bound::Expr& result) {
    const SqliteText value = Value(result);
    text.text += std::string(word) + value.text;
    text.state = first ? value.state : Merged(text.state, value.state);
    first = false;
  };
  for (const bound::When& when : node.whens) {
    text.text += " WHEN " + (node.operand ? Settled(*when.when) : Condition(*when.when)).text;
    add(" THEN ", *when.then);
  }
  if (node.otherwise) add(" ELSE ", *node.otherwise);
  text.text += " END";
  return text;
}

SqliteText SqliteEmitter::SubqueryText(const bound::Query& query) {
  std::vector<SqliteState> states;
  std::string text = "(" + OnlyText(query, states) + ")";
  return {std::move(text), SqliteBinding::kSingle, states[0]};
}

}  // namespace pstolvane1::sql
