// Conditions, which are true, false or unknown.
#include <algorithm>
#include <stdexcept>

#include "tests/sql/model/Evaluator.h"

namespace pstolvane1::sql::model {
namespace {

Truth Of(bool holds) { return holds ? Truth::kTrue : Truth::kFalse; }

Truth Opposite(Truth truth) {
  if (truth == Truth::kUnknown) return truth;
  return Of(truth == Truth::kFalse);
}

bool Holds(CompareOp op, int order) {
  switch (op) {
    case CompareOp::kEqual:
      return order == 0;
    case CompareOp::kNotEqual:
      return order != 0;
    case CompareOp::kLess:
      return order < 0;
    case CompareOp::kLessOrEqual:
      return order <= 0;
    case CompareOp::kGreater:
      return order > 0;
    case CompareOp::kGreaterOrEqual:
      return order >= 0;
  }
  return false;
}

}  // namespace

Truth Evaluator::Compared(CompareOp op, const Value& a, const Kind& kind_a, const Value& b,
                          const Kind& kind_b) {
  if (a.null || b.null) return Truth::kUnknown;
  const Kind kind = Common(kind_a, kind_b);
  return Of(Holds(op, Order(Convert(a, kind_a, kind), Convert(b, kind_b, kind), kind)));
}

Truth Evaluator::Compared(CompareOp op, const Expr& a, const Expr& b, const Frame& frame) {
  return Compared(op, ValueOf(a, frame), KindOf(a, frame), ValueOf(b, frame), KindOf(b, frame));
}

// a IN (x, y) is a = x OR a = y.
Truth Evaluator::TruthOfIn(const InList& in, const Frame& frame) {
  Truth found = Truth::kFalse;
  for (const ExprPtr& member : in.list) {
    found = std::max(found, Compared(CompareOp::kEqual, *in.operand, *member, frame));
  }
  return found;
}

Truth Evaluator::TruthOfIn(const InQuery& in, const Frame& frame) {
  const Value value = ValueOf(*in.operand, frame);
  const Kind kind = KindOf(*in.operand, frame);
  const Relation rows = Rows(*in.query, &frame);
  Truth found = Truth::kFalse;
  for (const Row& row : rows.rows) {
    found = std::max(found, Compared(CompareOp::kEqual, value, kind, row[0], rows.columns[0].kind));
  }
  return found;
}

// a BETWEEN x AND y is a >= x AND a <= y.
Truth Evaluator::TruthOfBetween(const Between& between, const Frame& frame) {
  return std::min(Compared(CompareOp::kGreaterOrEqual, *between.operand, *between.low, frame),
                  Compared(CompareOp::kLessOrEqual, *between.operand, *between.high, frame));
}

Truth Evaluator::TruthOf(const Expr& condition, const Frame& frame) {
  const auto signed_truth = [](Truth truth, bool negated) {
    return negated ? Opposite(truth) : truth;
  };
  if (const auto* e = condition.As<Comparison>()) {
    return Compared(e->op, *e->left, *e->right, frame);
  }
  if (const auto* e = condition.As<Not>()) return Opposite(TruthOf(*e->operand, frame));
  if (const auto* e = condition.As<Logical>()) {
    const bool conjunction = e->op == LogicalOp::kAnd;
    Truth truth = conjunction ? Truth::kTrue : Truth::kFalse;
    for (const ExprPtr& operand : e->operands) {
      const Truth next = TruthOf(*operand, frame);
      truth = conjunction ? std::min(truth, next) : std::max(truth, next);
    }
    return truth;
  }
  if (const auto* e = condition.As<Between>()) {
    return signed_truth(TruthOfBetween(*e, frame), e->negated);
  }
  if (const auto* e = condition.As<InList>()) return signed_truth(TruthOfIn(*e, frame), e->negated);
  if (const auto* e = condition.As<InQuery>()) {
    return signed_truth(TruthOfIn(*e, frame), e->negated);
  }
  if (const auto* e = condition.As<IsNull>()) {
    return signed_truth(Of(ValueOf(*e->operand, frame).null), e->negated);
  }
  if (const auto* e = condition.As<Exists>()) return Of(!Rows(*e->query, &frame).rows.empty());
  if (const auto* e = condition.As<Like>()) {
    const Value text = ValueOf(*e->operand, frame);
    const Value pattern = ValueOf(*e->pattern, frame);
    if (text.null || pattern.null) return Truth::kUnknown;
    const char escape = e->escape ? ValueOf(*e->escape, frame).text.at(0) : '\0';
    return signed_truth(Of(IsLike(text.text, pattern.text, escape)), e->negated);
  }
  throw std::logic_error("model: a value has no truth");
}

}  // namespace pstolvane1::sql::model
