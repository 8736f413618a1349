#include "session/sql/Binder.h"

namespace pstolvane1::sql {
namespace {

std::string_view SignOf(CompareOp op) {
  switch (op) {
    case CompareOp::kEqual:
      return "=";
    case CompareOp::kNotEqual:
      return "<>";
    case CompareOp::kLess:
      return "<";
    case CompareOp::kLessOrEqual:
      return "<=";
    case CompareOp::kGreater:
      return ">";
    case CompareOp::kGreaterOrEqual:
      return ">=";
  }
  return "";
}

}  // namespace

bound::ExprPtr Binder::BindCondition(const Expr& condition, const Context& context) {
  const Place place = condition.place;
  const auto made = [&](auto node) { return MakeExpr(std::move(node), {}, place); };
  if (const auto* node = condition.As<Comparison>()) {
    bound::Comparison bound{node->op, BindValue(*node->left, context),
                            BindValue(*node->right, context)};
    UniteCompared({&bound.left, &bound.right}, place, SignOf(node->op));
    return made(std::move(bound));
  }
  if (const auto* node = condition.As<Not>()) {
    return made(bound::Not{BindCondition(*node->operand, context)});
  }
  if (const auto* node = condition.As<Logical>()) {
    bound::Logical bound{node->op, {}};
    for (const ExprPtr& operand : node->operands) {
      bound.operands.push_back(BindCondition(*operand, context));
    }
    return made(std::move(bound));
  }
  if (const auto* node = condition.As<Between>()) {
    bound::Between bound{BindValue(*node->operand, context), BindValue(*node->low, context),
                         BindValue(*node->high, context), node->negated};
    UniteCompared({&bound.operand, &bound.low, &bound.high}, place, "BETWEEN");
    return made(std::move(bound));
  }
  if (const auto* node = condition.As<InList>()) {
    bound::InList bound{BindValue(*node->operand, context), {}, node->negated};
    for (const ExprPtr& one : node->list) bound.list.push_back(BindValue(*one, context));
    std::vector<bound::ExprPtr*> compared{&bound.operand};
    for (bound::ExprPtr& one : bound.list) compared.push_back(&one);
    UniteCompared(compared, place, "IN");
    return made(std::move(bound));
  }
  if (const auto* node = condition.As<InQuery>()) return BindInQuery(condition, *node, context);
  if (const auto* node = condition.As<Like>()) return BindLike(condition, *node, context);
  if (const auto* node = condition.As<IsNull>()) {
    return made(bound::IsNull{BindValue(*node->operand, context), node->negated});
  }
  if (const auto* node = condition.As<Exists>()) {
    if (context.in_aggregate) Refuse(place, "an aggregate cannot take a subquery");
    return made(bound::Exists{
        std::make_unique<bound::Query>(BindQuery(*node->query, context.scope, Role::kQuery))});
  }
  Refuse(place, "a value cannot stand for a condition: compare it with something");
}

bound::ExprPtr Binder::BindInQuery(const Expr& condition, const InQuery& node,
                                   const Context& context) {
  if (context.in_aggregate) Refuse(condition.place, "an aggregate cannot take a subquery");
  bound::InQuery bound{BindValue(*node.operand, context), BindColumnQuery(*node.query, context),
                       node.negated};
  const ValueType column = bound.query->columns[0].type;
  const auto common = CommonType(bound.operand->type, column);
  if (!common) {
    Refuse(condition.place, "type clash: " + NameOf(bound.operand->type) + " IN " + NameOf(column));
  }
  bound.operand = ConvertTo(std::move(bound.operand), *common);
  for (bound::Branch& branch : bound.query->branches) {
    bound::ExprPtr& value = branch.select.items[0].value;
    value = ConvertTo(std::move(value), *common);
  }
  bound.query->columns[0].type = *common;
  return MakeExpr(std::move(bound), {}, condition.place);
}

bound::ExprPtr Binder::BindLike(const Expr& condition, const Like& node, const Context& context) {
  bound::Like bound{ToText(BindValue(*node.operand, context), "LIKE"),
                    ToText(BindValue(*node.pattern, context), "LIKE"), nullptr, node.negated};
  if (node.escape) bound.escape = ToText(BindValue(*node.escape, context), "ESCAPE");
  return MakeExpr(std::move(bound), {}, condition.place);
}

}  // namespace pstolvane1::sql
