#include <algorithm>
#include <cstdint>
#include <cstdio>

#include "session/sql/PostgresEmitter.h"
#include "session/sql/PostgresFold.h"

namespace pstolvane1::sql {
namespace {

PostgresText Single(std::string text) { return {std::move(text), PostgresBinding::kSingle}; }

std::string WithPoint(const std::string& digits) {
  return digits.find('.') == std::string::npos ? digits + ".0" : digits;
}

PostgresText LiteralText(const bound::Literal& literal, const ValueType& type) {
  if (literal.is_null) return PostgresCast(Single("NULL"), PostgresTypeName(type));
  switch (type.type) {
    case Type::kText:
      return PostgresCast(Single(QuotedText(literal.text)), "text");
    case Type::kFlag:
      return Single(literal.text == "0" ? "FALSE" : "TRUE");
    case Type::kDate: {
      const bool day = literal.text.size() == 10 && !type.has_time;
      return Single((day ? "DATE " : "TIMESTAMP ") + QuotedText(literal.text));
    }
    case Type::kBigWhole:
    case Type::kSingle:
    case Type::kReal:
      return PostgresCast(Single(literal.text), PostgresTypeName(type));
    case Type::kMoney:
    case Type::kDecimal:
      return Single(WithPoint(literal.text));
    default:
      return Single(literal.text);
  }
}

}  // namespace

std::string Bracketed(const PostgresText& value, PostgresBinding at_least) {
  return value.binding < at_least ? "(" + value.text + ")" : value.text;
}

PostgresText PostgresCall(std::string_view name, const std::vector<std::string>& arguments) {
  std::string text(name);
  const char* separator = "(";
  for (const std::string& argument : arguments) {
    text += separator + argument;
    separator = ", ";
  }
  return Single(text + ")");
}

PostgresText PostgresCast(const PostgresText& value, std::string_view type) {
  return {Bracketed(value, PostgresBinding::kCast) + "::" + std::string(type),
          PostgresBinding::kCast};
}

PostgresText PostgresMoney(const PostgresText& real) {
  const std::string units = Bracketed(real, PostgresBinding::kMultiply) + " * 10000::float8";
  return {PostgresCast(PostgresCall("round", {units}), "int8").text + " * 0.0001",
          PostgresBinding::kMultiply};
}

std::string PostgresTypeName(const ValueType& type) {
  switch (type.type) {
    case Type::kText:
      return "text";
    case Type::kFlag:
      return "bool";
    case Type::kBigWhole:
      return "int8";
    case Type::kMoney:
    case Type::kDecimal:
      return "numeric";
    case Type::kSingle:
    case Type::kReal:
      return "float8";
    case Type::kDate:
      return type.has_time ? "timestamp" : "date";
    default:
      return "int4";
  }
}

PostgresText Unfolded(const PostgresText& value) { return Single("(SELECT " + value.text + ")"); }

// What is cut off stays apart by a number that is made of the whole name.
std::string PostgresName(std::string_view name) {
  constexpr std::size_t kLongest = 63;
  constexpr std::size_t kKept = 40;
  if (name.size() <= kLongest) return QuotedName(name);
  std::uint64_t hash = 14695981039346656037U;
  for (const char c : name) hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211U;
  std::size_t kept = kKept;
  while ((static_cast<unsigned char>(name[kept]) & 0xC0U) == 0x80U) --kept;
  char number[17];
  std::snprintf(number, sizeof number, "%016llx", static_cast<unsigned long long>(hash));
  return QuotedName(std::string(name.substr(0, kept)) + "~" + number);
}

std::string PostgresEmitter::Folded(const std::string& value) const {
  return PostgresFolded(value, characters_);
}

PostgresText PostgresEmitter::Compared(const bound::Expr& value) {
  if (value.type.type != Type::kText) return Value(value);
  const auto* literal = value.As<bound::Literal>();
  if (literal != nullptr && !literal->is_null) {
    return {PostgresFoldedText(literal->text, characters_), PostgresBinding::kSign};
  }
  return {Folded(Bracketed(Value(value), PostgresBinding::kSign)), PostgresBinding::kSign};
}

bool PostgresEmitter::IsGrouped(const bound::Expr& value) const {
  return std::ranges::any_of(grouped_, [&](const bound::Select* select) {
    return std::ranges::any_of(
        select->group_by, [&](const bound::ExprPtr& group) { return bound::Same(*group, value); });
  });
}

PostgresText PostgresEmitter::Value(const bound::Expr& value) {
  if (grouped_.empty() || !IsGrouped(value)) return UngroupedValue(value);
  std::vector<const bound::Select*> around;
  around.swap(grouped_);
  PostgresText text = UngroupedValue(value);
  grouped_.swap(around);
  if (value.type.type != Type::kText) return text;
  return PostgresCall("max", {Bracketed(text, PostgresBinding::kSign) + " COLLATE \"C\""});
}

PostgresText PostgresEmitter::UngroupedValue(const bound::Expr& value) {
  if (const auto* literal = value.As<bound::Literal>()) return LiteralText(*literal, value.type);
  if (const auto* column = value.As<bound::Column>()) return ColumnText(*column);
  if (const auto* negate = value.As<bound::Negate>()) {
    const PostgresText operand = Value(*negate->operand);
    return {"-" + (operand.text.front() == '-' ? "(" + operand.text + ")"
                                               : Bracketed(operand, PostgresBinding::kCast)),
            PostgresBinding::kSign};
  }
  if (const auto* node = value.As<bound::Arithmetic>()) return ArithmeticText(*node, value.type);
  if (const auto* node = value.As<bound::Concat>()) {
    return {Bracketed(Value(*node->left), PostgresBinding::kMember) + " || " +
                Bracketed(Value(*node->right), PostgresBinding::kAdd),
            PostgresBinding::kMember};
  }
  if (const auto* call = value.As<bound::Call>()) return CallText(*call, value.type);
  if (const auto* node = value.As<bound::Aggregate>()) return AggregateText(*node, value.type);
  if (const auto* node = value.As<bound::Convert>()) return ConvertText(*node, value.type);
  if (const auto* node = value.As<bound::Case>()) return CaseText(*node);
  return Single("(" + QueryText(*std::get<bound::ScalarSubquery>(value.node).query, Use::kRows) +
                ")");
}

PostgresText PostgresEmitter::ColumnText(const bound::Column& column) {
  const bound::Source& source = *column.source;
  if (const auto moved = moved_.find(&source); moved != moved_.end()) {
    return Single(moved->second[column.index]);
  }
  const std::string name = source.columns[column.index].name;
  if (source.table == nullptr) return Single(PostgresName(source.name) + "." + PostgresName(name));
  const std::string& reading = source.table->columns[column.index].reading;
  return {PostgresName(source.name) + "." + QuotedName(name) + reading,
          reading.empty() ? PostgresBinding::kSingle : PostgresBinding::kCast};
}

PostgresText PostgresEmitter::CaseText(const bound::Case& node) {
  std::string text = "CASE";
  if (node.operand) text += " " + Compared(*node.operand).text;
  for (const bound::When& when : node.whens) {
    text += " WHEN " + (node.operand ? Compared(*when.when) : Condition(*when.when)).text +
            " THEN " + Value(*when.then).text;
  }
  if (node.otherwise) text += " ELSE " + Value(*node.otherwise).text;
  return Single(text + " END");
}

}  // namespace pstolvane1::sql
