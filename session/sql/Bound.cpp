#include "session/sql/Bound.h"

#include <algorithm>
#include <type_traits>

namespace pstolvane1::sql::bound {
namespace {

using List = std::vector<const Expr*>;

List OperandsOf(const Literal&) { return {}; }
List OperandsOf(const Column&) { return {}; }
List OperandsOf(const Negate& node) { return {node.operand.get()}; }
List OperandsOf(const Arithmetic& node) { return {node.left.get(), node.right.get()}; }
List OperandsOf(const Concat& node) { return {node.left.get(), node.right.get()}; }
List OperandsOf(const Call& node) {
  List list;
  for (const ExprPtr& argument : node.arguments) list.push_back(argument.get());
  return list;
}
List OperandsOf(const Aggregate& node) { return {node.argument.get()}; }
List OperandsOf(const Convert& node) { return {node.operand.get()}; }
List OperandsOf(const Case& node) {
  List list{node.operand.get()};
  for (const When& when : node.whens) {
    list.push_back(when.when.get());
    list.push_back(when.then.get());
  }
  list.push_back(node.otherwise.get());
  return list;
}
List OperandsOf(const ScalarSubquery&) { return {}; }
List OperandsOf(const Comparison& node) { return {node.left.get(), node.right.get()}; }
List OperandsOf(const Not& node) { return {node.operand.get()}; }
List OperandsOf(const Logical& node) {
  List list;
  for (const ExprPtr& operand : node.operands) list.push_back(operand.get());
  return list;
}
List OperandsOf(const Between& node) {
  return {node.operand.get(), node.low.get(), node.high.get()};
}
List OperandsOf(const InList& node) {
  List list{node.operand.get()};
  for (const ExprPtr& one : node.list) list.push_back(one.get());
  return list;
}
List OperandsOf(const InQuery& node) { return {node.operand.get()}; }
List OperandsOf(const Like& node) {
  return {node.operand.get(), node.pattern.get(), node.escape.get()};
}
List OperandsOf(const IsNull& node) { return {node.operand.get()}; }
List OperandsOf(const Exists&) { return {}; }

// What a node is beside its operands.
bool SameSelf(const Literal& a, const Literal& b) {
  return a.is_null == b.is_null && a.text == b.text;
}
bool SameSelf(const Column& a, const Column& b) {
  return a.source == b.source && a.index == b.index;
}
bool SameSelf(const Arithmetic& a, const Arithmetic& b) { return a.op == b.op; }
bool SameSelf(const Call& a, const Call& b) { return a.function == b.function; }
bool SameSelf(const Aggregate& a, const Aggregate& b) {
  return a.kind == b.kind && a.distinct == b.distinct;
}
bool SameSelf(const ScalarSubquery&, const ScalarSubquery&) { return false; }
bool SameSelf(const Comparison& a, const Comparison& b) { return a.op == b.op; }
bool SameSelf(const Logical& a, const Logical& b) { return a.op == b.op; }
bool SameSelf(const Between& a, const Between& b) { return a.negated == b.negated; }
bool SameSelf(const InList& a, const InList& b) { return a.negated == b.negated; }
bool SameSelf(const InQuery&, const InQuery&) { return false; }
bool SameSelf(const Like& a, const Like& b) { return a.negated == b.negated; }
bool SameSelf(const IsNull& a, const IsNull& b) { return a.negated == b.negated; }
bool SameSelf(const Exists&, const Exists&) { return false; }
template <typename Node>
bool SameSelf(const Node&, const Node&) {
  return true;
}

}  // namespace

List Operands(const Expr& expression) {
  return std::visit([](const auto& node) { return OperandsOf(node); }, expression.node);
}

const Query* QueryOf(const Expr& expression) {
  if (const auto* scalar = expression.As<ScalarSubquery>()) return scalar->query.get();
  if (const auto* in = expression.As<InQuery>()) return in->query.get();
  if (const auto* exists = expression.As<Exists>()) return exists->query.get();
  return nullptr;
}

bool Same(const Expr& a, const Expr& b) {
  if (a.node.index() != b.node.index() || a.type != b.type) return false;
  const bool same_self = std::visit(
      [&](const auto& node) {
        return SameSelf(node, std::get<std::decay_t<decltype(node)>>(b.node));
      },
      a.node);
  if (!same_self) return false;
  const List left = Operands(a);
  const List right = Operands(b);
  if (left.size() != right.size()) return false;
  for (std::size_t i = 0; i < left.size(); ++i) {
    if ((left[i] == nullptr) != (right[i] == nullptr)) return false;
    if (left[i] != nullptr && !Same(*left[i], *right[i])) return false;
  }
  return true;
}

bool IsOwn(const Source& source, const Select& select) {
  bool own = false;
  for (const FromPtr& from : select.from) {
    ForEachSource(*from, [&](const Source& one) { own = own || &one == &source; });
  }
  return own;
}

bool TakesColumnOf(const Expr& value, const Select& select) {
  if (const auto* column = value.As<Column>()) return IsOwn(*column->source, select);
  return std::ranges::any_of(Operands(value), [&](const Expr* operand) {
    return operand != nullptr && TakesColumnOf(*operand, select);
  });
}

bool IsConstant(const Expr& value) {
  if (value.As<Column>() != nullptr || value.As<Aggregate>() != nullptr) return false;
  return QueryOf(value) == nullptr && std::ranges::all_of(Operands(value), [](const Expr* operand) {
           return operand == nullptr || IsConstant(*operand);
         });
}

bool HasAggregate(const Expr& value) {
  if (value.As<Aggregate>() != nullptr) return true;
  return std::ranges::any_of(Operands(value), [](const Expr* operand) {
    return operand != nullptr && HasAggregate(*operand);
  });
}

void ForEachSource(const From& from, const std::function<void(const Source&)>& visit) {
  if (const auto* source = std::get_if<std::unique_ptr<Source>>(&from.node)) {
    visit(**source);
    return;
  }
  const Join& join = std::get<Join>(from.node);
  ForEachSource(*join.left, visit);
  ForEachSource(*join.right, visit);
}

}  // namespace pstolvane1::sql::bound
