#include "session/sql/PostgresEmitter.h"
#include "session/sql/PostgresFold.h"

namespace pstolvane1::sql {
namespace {

// The sum of floats, not yet rounded. Added as they are, many floats of one size drift by the order
// and number of the rows. So what each has in whole 2^-16 is added apart, which loses nothing up to
// 2^37, and the small rest apart.
std::string FloatSum(const std::string& value) {
  const std::string coarse =
      value + " + 103079215104::float8 - 103079215104::float8";  // 1.5 * 2^36
  return "(sum(" + coarse + ") + sum(" + value + " - (" + coarse + ")))";
}

// The sum of floats to the figures that do not depend on the order of the rows: 13 of the sum of
// their sizes. What came in as 0.1 and 0.2 and went out as 0.3 is gone; one number alone stays what
// it is. The sum of the sizes depends on the order as well: many are a power of ten, none is 1.047
// of one.
PostgresText SureSum(const PostgresText& argument, bool distinct) {
  const std::string value = Bracketed(argument, PostgresBinding::kAdd);
  const std::string only = distinct ? "DISTINCT " : "";
  const std::string sum = distinct ? "sum(DISTINCT " + value + ")" : FloatSum(value);
  const std::string size = "sum(" + only + "abs(" + argument.text + "))";
  const std::string places = "13 - ceil(log(nullif(" + size + ", 0)) - 0.02)";
  // A float is no power of ten below 1, nor one beyond 1e22.
  const auto power = [](const std::string& exponent, std::string_view most) {
    return "power(10::float8, least(greatest(" + exponent + ", 0), " + std::string(most) + "))";
  };
  const std::string up = power(places, "300");
  const std::string down = power("-(" + places + ")", "22");
  return {"CASE WHEN " + size + " = max(abs(" + argument.text + ")) THEN " + sum + " ELSE round(" +
              sum + " * " + up + " / " + down + ") * " + down + " / " + up + " END + 0::float8",
          PostgresBinding::kAdd};
}

}  // namespace

PostgresText PostgresEmitter::CallText(const bound::Call& call, const ValueType& type) {
  using F = bound::Function;
  const bound::Expr& first = *call.arguments[0];
  const PostgresText value = Value(first);
  const auto part = [&](std::string_view field) {
    return PostgresCast(PostgresCall("extract", {std::string(field) + " FROM " + value.text}),
                        "int4");
  };
  switch (call.function) {
    case F::kAbs:
      return PostgresCall("abs", {value.text});
    case F::kRound: {
      const bool exact = type.type == Type::kMoney || type.type == Type::kDecimal;
      const PostgresText rounded =
          PostgresCall("round", {exact ? value.text : PostgresCast(value, "numeric").text,
                                 Value(*call.arguments[1]).text});
      return exact ? rounded : PostgresCast(rounded, PostgresTypeName(type));
    }
    case F::kIsNull:
    case F::kCoalesce: {
      std::vector<std::string> texts{value.text};
      for (std::size_t i = 1; i < call.arguments.size(); ++i) {
        texts.push_back(Value(*call.arguments[i]).text);
      }
      return PostgresCall("coalesce", texts);
    }
    case F::kNullIf:
      return {"CASE WHEN " + Bracketed(Compared(first), PostgresBinding::kMember) + " = " +
              Bracketed(Compared(*call.arguments[1]), PostgresBinding::kMember) +
              " THEN NULL ELSE " + value.text + " END"};
    case F::kYear:
      return part("year");
    case F::kMonth:
      return part("month");
    case F::kDay:
      return part("day");
    case F::kLeft:
      return PostgresCall("left", {value.text, Value(*call.arguments[1]).text});
    case F::kRight:
      return PostgresCall("right", {value.text, Value(*call.arguments[1]).text});
    case F::kSubstring:
      return PostgresCall(
          "substr", {value.text, Value(*call.arguments[1]).text, Value(*call.arguments[2]).text});
    case F::kLength:
      return PostgresCall("length", {PostgresCall("rtrim", {value.text}).text});
    case F::kUpper:
      return {PostgresLarge(Bracketed(value, PostgresBinding::kSign), characters_),
              PostgresBinding::kSign};
    case F::kLower:
      return {PostgresSmall(Bracketed(value, PostgresBinding::kSign), characters_),
              PostgresBinding::kSign};
    case F::kTrimLeft:
      return PostgresCall("ltrim", {value.text});
    case F::kTrimRight:
      return PostgresCall("rtrim", {value.text});
  }
  return {};
}

// Of the rows with a text the one that the dialect's order puts first or last; of equal ones the
// last by code point.
PostgresText PostgresEmitter::ExtremeText(const std::string& value, bool first) const {
  return {"(array_agg(" + value + " ORDER BY " + Folded(value) + (first ? "" : " DESC") + ", " +
          value + " COLLATE \"C\" DESC) FILTER (WHERE " + value + " IS NOT NULL))[1]"};
}

PostgresText PostgresEmitter::AggregateText(const bound::Aggregate& node, const ValueType& type) {
  using Kind = bound::AggregateKind;
  if (node.argument == nullptr) return PostgresCast(PostgresCall("count", {"*"}), "int4");
  // An aggregate takes the rows of its own select before they are grouped.
  const bound::Select* own = grouped_.back();
  grouped_.pop_back();
  const bound::Expr& argument = *node.argument;
  const bool is_text = argument.type.type == Type::kText;
  const PostgresText own_value = Value(argument);
  const std::string& plain = own_value.text;
  const std::string counted =
      node.kind == Kind::kCount && node.distinct ? Compared(argument).text : plain;
  grouped_.push_back(own);
  const std::string value = (node.distinct ? "DISTINCT " : "") + counted;
  switch (node.kind) {
    case Kind::kCount:
      return PostgresCast(PostgresCall("count", {value}), "int4");
    case Kind::kMinimum:
    case Kind::kMaximum: {
      const bool first = node.kind == Kind::kMinimum;
      if (is_text) return ExtremeText(plain, first);
      return PostgresCall(first ? "min" : "max", {plain});
    }
    case Kind::kAverage:
      if (type.type != Type::kReal) return AverageText(value, type);
      return {Bracketed(SureSum(own_value, node.distinct), PostgresBinding::kMultiply) +
                  " / nullif(" + PostgresCall("count", {value}).text + ", 0)",
              PostgresBinding::kMultiply};
    case Kind::kSum:
      break;
  }
  if (type.type == Type::kReal) return SureSum(own_value, node.distinct);
  const PostgresText sum = PostgresCall("sum", {value});
  const bool widened = type.type == Type::kWhole || type.type == Type::kBigWhole;
  return widened ? PostgresCast(sum, PostgresTypeName(type)) : sum;
}

PostgresText PostgresEmitter::AverageText(const std::string& value, const ValueType& type) {
  const std::string sum = PostgresCall("sum", {value}).text;
  const std::string count = PostgresCall("count", {value}).text;
  switch (type.type) {
    case Type::kWhole:
      return PostgresCast({"(" + sum + " / " + count + ")"}, "int4");
    case Type::kBigWhole:
      return {sum + "::int8 / " + count, PostgresBinding::kMultiply};
    case Type::kMoney:
      return PostgresMoney({sum + "::float8 / " + count, PostgresBinding::kMultiply});
    case Type::kDecimal: {
      const auto places = static_cast<std::size_t>(type.places);
      return {"div(" + sum + " * 1" + std::string(places, '0') + "::numeric, " + count + ") * 0." +
                  std::string(places - 1, '0') + "1",
              PostgresBinding::kMultiply};
    }
    default:
      return {};
  }
}

}  // namespace pstolvane1::sql
