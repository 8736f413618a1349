#include "session/sql/SqliteEmitter.h"

namespace pstolvane1::sql {
namespace {

SqliteState WithinRange(double low, double high) {
  return {SqliteForm::kSettled, false, low, high};
}

const std::string& Digits(const bound::Expr& literal) {
  return std::get<bound::Literal>(literal.node).text;
}

}  // namespace

SqliteText SqliteEmitter::CallText(const bound::Call& call, const ValueType& type) {
  using F = bound::Function;
  const bound::Expr& first = *call.arguments[0];
  switch (call.function) {
    case F::kAbs: {
      const SqliteText value = Value(first);
      SqliteState state = value.state;
      state.low = 0;
      state.high = std::max(-value.state.low, value.state.high);
      if (IsWhole(type.type) && state.high > WholeState(type).high) state.form = SqliteForm::kRaw;
      return SqliteCall("abs", {value.text}, state);
    }
    case F::kRound: {
      SqliteState state = WholeState(type);
      if (IsWhole(type.type)) state.form = SqliteForm::kRaw;
      return SqliteCall("pst_round", {Settled(first).text, Settled(*call.arguments[1]).text},
                        state);
    }
    case F::kIsNull:
    case F::kCoalesce: {
      std::vector<std::string> texts;
      SqliteState state;
      for (const bound::ExprPtr& argument : call.arguments) {
        const SqliteText value = Value(*argument);
        state = texts.empty() ? value.state : Merged(state, value.state);
        texts.push_back(value.text);
      }
      return SqliteCall(texts.size() == 2 ? "ifnull" : "coalesce", texts, state);
    }
    case F::kNullIf: {
      const SqliteText value = Compared(first);
      return SqliteCall("nullif", {value.text, Settled(*call.arguments[1]).text}, value.state);
    }
    case F::kYear:
      return SqliteCall("pst_year", {Value(first).text}, WithinRange(1, 9999));
    case F::kMonth:
      return SqliteCall("pst_month", {Value(first).text}, WithinRange(1, 12));
    case F::kDay:
      return SqliteCall("pst_day", {Value(first).text}, WithinRange(1, 31));
    case F::kLeft:
      return SqliteCall("substr", {Value(first).text, "1", Digits(*call.arguments[1])});
    case F::kRight: {
      // SQLite counts from the end only for a negative place; there is none at 0 characters.
      const std::string& size = Digits(*call.arguments[1]);
      if (size == "0") return SqliteCall("substr", {Value(first).text, "1", "0"});
      return SqliteCall("substr", {Value(first).text, "-" + size});
    }
    case F::kSubstring:
      return SqliteCall(
          "substr", {Value(first).text, Digits(*call.arguments[1]), Digits(*call.arguments[2])});
    case F::kLength:
      return SqliteCall("length", {SqliteCall("rtrim", {Value(first).text}).text},
                        WithinRange(0, 2147483647));
    case F::kUpper:
      return SqliteCall("pst_upper", {Value(first).text});
    case F::kLower:
      return SqliteCall("pst_lower", {Value(first).text});
    case F::kTrimLeft:
      return SqliteCall("ltrim", {Value(first).text});
    case F::kTrimRight:
      return SqliteCall("rtrim", {Value(first).text});
  }
  return {};
}

SqliteText SqliteEmitter::AggregateText(const bound::Aggregate& node, const ValueType& type) {
  using Kind = bound::AggregateKind;
  if (node.argument == nullptr) return SqliteCall("count", {"*"}, WithinRange(0, 2147483647));
  const std::string distinct = node.distinct ? "DISTINCT " : "";
  const bound::Expr& argument = *node.argument;
  switch (node.kind) {
    case Kind::kCount: {
      const std::string counted = node.distinct ? Compared(argument).text : Settled(argument).text;
      return SqliteCall("count", {distinct + counted}, WithinRange(0, 2147483647));
    }
    case Kind::kMinimum:
    case Kind::kMaximum: {
      const SqliteText compared = Compared(argument);
      return SqliteCall(node.kind == Kind::kMinimum ? "min" : "max", {compared.text},
                        compared.state);
    }
    case Kind::kAverage:
      return AverageText(node, type);
    case Kind::kSum:
      break;
  }
  const SqliteText value = node.distinct ? Settled(argument) : Rounded(argument);
  switch (type.type) {
    case Type::kWhole:
    case Type::kBigWhole: {
      SqliteState state = WholeState({Type::kBigWhole});
      if (type.type == Type::kWhole) state.form = SqliteForm::kRaw;
      return SqliteCall("sum", {distinct + value.text}, state);
    }
    case Type::kMoney:
      return SqliteCall("pst_sum_money",
                        {node.distinct ? distinct + value.text : Value(argument).text});
    case Type::kDecimal:
      // A second argument and DISTINCT do not go together in SQLite.
      if (node.distinct) {
        return SqliteCall("sum", {distinct + value.text}, {SqliteForm::kNoise, false, 0, 0});
      }
      return SqliteCall("pst_sum_decimal", {value.text, std::to_string(type.places)});
    default:
      return SqliteCall("pst_sum_real", {distinct + value.text},
                        {SqliteForm::kSettled, true, 0, 0});
  }
}

SqliteText SqliteEmitter::AverageText(const bound::Aggregate& node, const ValueType& type) {
  const bound::Expr& argument = *node.argument;
  const std::string value = (node.distinct ? "DISTINCT " : "") + Settled(argument).text;
  const SqliteText count = SqliteCall("count", {value});
  switch (type.type) {
    case Type::kWhole:
    case Type::kBigWhole:
      return {SqliteCall("sum", {value}).text + " / " + count.text, SqliteBinding::kMultiply,
              WholeState(type)};
    case Type::kMoney:
      return {SqliteCall("pst_sum_money", {value}).text + " * 1.0 / " + count.text,
              SqliteBinding::kMultiply,
              {SqliteForm::kRaw, true, 0, 0}};
    case Type::kDecimal: {
      const std::string places = std::to_string(argument.type.places);
      const std::string sum = node.distinct ? SqliteCall("sum", {value}).text
                                            : SqliteCall("pst_sum_decimal", {value, places}).text;
      return SqliteCall("pst_div_decimal",
                        {sum, places, count.text, "0", std::to_string(type.places)});
    }
    default:
      return SqliteCall("pst_average_real", {value}, {SqliteForm::kSettled, true, 0, 0});
  }
}

}  // namespace pstolvane1::sql
