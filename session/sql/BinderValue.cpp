#include <algorithm>
#include <charconv>

#include "session/sql/Binder.h"
#include "session/sql/DateText.h"

namespace pstolvane1::sql {
namespace {

std::string_view SignOf(ArithmeticOp op) {
  switch (op) {
    case ArithmeticOp::kAdd:
      return "+";
    case ArithmeticOp::kSubtract:
      return "-";
    case ArithmeticOp::kMultiply:
      return "*";
    case ArithmeticOp::kDivide:
      return "/";
    case ArithmeticOp::kModulo:
      return "%";
  }
  return "";
}

// Digits without zeros in front, so that their number tells the size.
std::string Shortened(const std::string& digits) {
  const std::size_t first = digits.find_first_not_of('0');
  return first == std::string::npos ? "0" : digits.substr(first);
}

bool FitsWhole(const std::string& digits) {
  std::int32_t number = 0;
  const auto end = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return end.ec == std::errc() && end.ptr == digits.data() + digits.size();
}

// A literal of digits is a whole number up to 32 bits and a decimal beyond; the text comes out with
// digits on both sides of its point.
bound::ExprPtr NumberOf(const NumberLiteral& number, Place place) {
  ValueType type{Type::kReal};
  std::string text = number.digits;
  if (number.form == NumberLiteral::Form::kWhole) {
    text = Shortened(text);
    type.type = FitsWhole(text) ? Type::kWhole : Type::kDecimal;
    type.digits = static_cast<int>(text.size());
  } else if (number.form == NumberLiteral::Form::kDecimal) {
    const std::size_t point = text.find('.');
    const std::string whole = Shortened(text.substr(0, point));
    const std::string places = text.substr(point + 1);
    type.type = Type::kDecimal;
    type.places = static_cast<int>(places.size());
    type.digits = static_cast<int>((whole == "0" ? 0 : whole.size()) + places.size());
    if (type.digits == 0) type.digits = 1;
    text = whole + "." + (places.empty() ? "0" : places);
  }
  return MakeExpr(bound::Literal{false, std::move(text)}, type, place);
}

}  // namespace

bound::ExprPtr Binder::BindValue(const Expr& value, const Context& context) {
  if (const auto* number = value.As<NumberLiteral>()) {
    bound::ExprPtr literal = NumberOf(*number, value.place);
    if (literal->type.digits > 38) Refuse(value.place, "a number has at most 38 digits");
    return literal;
  }
  if (const auto* text = value.As<TextLiteral>()) {
    ValueType type{Type::kText};
    for (const char c : text->text) type.size += (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
    type.size = std::max(type.size, 1);
    return MakeExpr(bound::Literal{false, text->text}, type, value.place);
  }
  if (const auto* flag = value.As<FlagLiteral>()) {
    return MakeExpr(bound::Literal{false, flag->value ? "1" : "0"}, {Type::kFlag}, value.place);
  }
  if (value.As<NullLiteral>() != nullptr) {
    return MakeExpr(bound::Literal{true, ""}, {Type::kNull}, value.place);
  }
  if (const auto* column = value.As<ColumnRef>()) {
    return ResolveColumn(*column, value.place, *context.scope);
  }
  if (const auto* sign = value.As<Sign>()) return BindSign(value, *sign, context);
  if (const auto* node = value.As<sql::Arithmetic>()) return BindArithmetic(value, *node, context);
  if (const auto* call = value.As<sql::Call>()) return BindCall(value, *call, context);
  if (const auto* cast = value.As<Cast>()) return BindCast(value, *cast, context);
  if (const auto* node = value.As<Case>()) return BindCase(value, *node, context);
  if (const auto* subquery = value.As<ScalarSubquery>()) {
    return BindSubquery(value, *subquery->query, context);
  }
  Refuse(value.place, "a condition cannot stand for a value");
}

bound::ExprPtr Binder::BindSign(const Expr& value, const Sign& node, const Context& context) {
  bound::ExprPtr operand = BindValue(*node.operand, context);
  const Type type = operand->type.type;
  if (node.op == SignOp::kPlus) return operand;
  if (type == Type::kNull) return operand;
  if (!IsNumber(type) || type == Type::kFlag) {
    Refuse(value.place, "\"-\" takes a number, not " + NameOf(operand->type));
  }
  const ValueType negated = operand->type;
  return MakeExpr(bound::Negate{std::move(operand)}, negated, value.place);
}

bound::ExprPtr Binder::BindArithmetic(const Expr& value, const Arithmetic& node,
                                      const Context& context) {
  bound::ExprPtr left = BindValue(*node.left, context);
  bound::ExprPtr right = BindValue(*node.right, context);
  const std::string clash = "type clash: " + NameOf(left->type) + " " +
                            std::string(SignOf(node.op)) + " " + NameOf(right->type);
  // A text beside a number is read as one.
  if (left->type.type == Type::kText && IsNumber(right->type.type)) {
    left = ConvertTo(std::move(left), right->type);
  } else if (right->type.type == Type::kText && IsNumber(left->type.type)) {
    right = ConvertTo(std::move(right), left->type);
  }
  const auto type = ArithmeticType(node.op, left->type, right->type);
  if (!type) Refuse(value.place, clash);
  for (bound::ExprPtr* side : {&left, &right}) {
    const Type now = (*side)->type.type;
    if (now == Type::kNull || now == Type::kFlag) {
      *side = ConvertTo(std::move(*side), now == Type::kNull ? *type : ValueType{Type::kWhole});
    }
  }
  if (type->type == Type::kText) {
    return MakeExpr(bound::Concat{std::move(left), std::move(right)}, *type, value.place);
  }
  return MakeExpr(bound::Arithmetic{node.op, std::move(left), std::move(right)}, *type,
                  value.place);
}

bound::ExprPtr Binder::BindCase(const Expr& value, const Case& node, const Context& context) {
  bound::Case bound;
  if (node.operand) bound.operand = BindValue(*node.operand, context);
  for (const CaseWhen& when : node.whens) {
    bound.whens.push_back(
        {node.operand ? BindValue(*when.when, context) : BindCondition(*when.when, context),
         BindValue(*when.then, context)});
  }
  if (node.otherwise) bound.otherwise = BindValue(*node.otherwise, context);
  std::vector<bound::ExprPtr*> compared;
  std::vector<bound::ExprPtr*> results;
  if (bound.operand) compared.push_back(&bound.operand);
  for (bound::When& when : bound.whens) {
    if (bound.operand) compared.push_back(&when.when);
    results.push_back(&when.then);
  }
  if (bound.otherwise) results.push_back(&bound.otherwise);
  if (bound.operand) UniteCompared(compared, value.place, "CASE and its WHENs");
  const ValueType type = Unite(results, value.place, "the results of a CASE");
  return MakeExpr(std::move(bound), type, value.place);
}

bound::ExprPtr Binder::BindCast(const Expr& value, const Cast& node, const Context& context) {
  bound::ExprPtr operand = BindValue(*node.operand, context);
  const auto type = TypeOfCast(node.type);
  const std::string& name = node.type.name.text;
  if (!type) Refuse(node.type.name.place, Quoted(name) + " is no type to cast to");
  const bool no_size = node.type.size && *node.type.size < 1;
  if (no_size || type->places > type->digits) {
    Refuse(node.type.name.place, "the type " + Quoted(name) + " cannot have this size");
  }
  const bool clash = (operand->type.type == Type::kDate && IsNumber(type->type)) ||
                     (IsNumber(operand->type.type) && type->type == Type::kDate);
  if (clash) {
    Refuse(value.place,
           "type clash: " + NameOf(operand->type) + " cannot be cast to " + NameOf(*type));
  }
  // A date that can be read is one; everything else is read, or is an error, when it is run.
  const auto* literal = operand->As<bound::Literal>();
  if (literal != nullptr && operand->type.type == Type::kText && type->type == Type::kDate) {
    if (const auto date = ReadDateText(literal->text)) {
      const std::string text = type->has_time ? *date : date->substr(0, 10);
      return MakeExpr(bound::Literal{false, text}, *type, value.place);
    }
  }
  return MakeExpr(bound::Convert{std::move(operand), true}, *type, value.place);
}

bound::QueryPtr Binder::BindColumnQuery(const Query& query, const Context& context) {
  return std::make_unique<bound::Query>(BindQuery(query, context.scope, Role::kValue));
}

bound::ExprPtr Binder::BindSubquery(const Expr& value, const Query& query, const Context& context) {
  if (context.in_aggregate || context.clause == Clause::kGroupBy) {
    Refuse(value.place, context.in_aggregate ? "an aggregate cannot take a subquery"
                                             : "a subquery cannot stand in GROUP BY");
  }
  bound::QueryPtr bound = BindColumnQuery(query, context);
  const ValueType type = bound->columns[0].type;
  return MakeExpr(bound::ScalarSubquery{std::move(bound)}, type, value.place);
}

}  // namespace pstolvane1::sql
