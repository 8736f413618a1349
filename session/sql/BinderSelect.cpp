#include <algorithm>

#include "session/sql/Binder.h"
#include "session/sql/Names.h"

namespace pstolvane1::sql {

bound::Select Binder::BindSelect(const Select& select, Scope& scope) {
  bound::Select bound;
  bound.distinct = select.distinct;
  bound.top = select.top;
  for (const TableRefPtr& table : select.from) {
    bound.from.push_back(BindFrom(*table, scope.outer, scope));
  }
  if (select.where) bound.where = BindCondition(*select.where, {&scope, &bound, Clause::kWhere});
  for (const ExprPtr& by : select.group_by) {
    bound.group_by.push_back(BindValue(*by, {&scope, &bound, Clause::kGroupBy}));
    bound.aggregated = true;
    if (bound::TakesColumnOf(*bound.group_by.back(), bound)) continue;
    Refuse(by->place, "a GROUP BY takes no constants, only values of the columns of its FROM");
  }
  for (const SelectItem& item : select.items) {
    if (item.IsStar()) {
      ExpandStar(item, scope, bound);
    } else {
      BindItem(item, scope, bound);
    }
  }
  if (select.having) {
    bound.having = BindCondition(*select.having, {&scope, &bound, Clause::kHaving});
    bound.aggregated = true;
  }
  return bound;
}

void Binder::BindItem(const SelectItem& item, const Scope& scope, bound::Select& bound) {
  std::string name = item.alias.text;
  if (const auto* column = item.value->As<ColumnRef>(); column != nullptr && name.empty()) {
    name = column->column.text;
  }
  bound.items.push_back(
      {std::move(name), BindValue(*item.value, {&scope, &bound, Clause::kSelect})});
}

void Binder::ExpandStar(const SelectItem& item, const Scope& scope, bound::Select& bound) {
  bool found = false;
  for (const bound::Source* source : scope.sources) {
    if (item.star_of && !SameName(source->name, item.star_of.text)) continue;
    found = true;
    for (std::size_t i = 0; i < source->columns.size(); ++i) {
      bound.items.push_back({source->columns[i].name, MakeColumn(*source, i, item.place)});
    }
  }
  if (found) return;
  if (!item.star_of) Refuse(item.place, "\"*\" needs a FROM");
  Refuse(item.star_of.place, "unknown table or alias " + Quoted(item.star_of.text));
}

void Binder::CheckGroups(const bound::Select& select) {
  if (!select.aggregated) return;
  for (const bound::Item& item : select.items) CheckGrouped(*item.value, select, false);
  if (select.having) CheckGrouped(*select.having, select, false);
}

void Binder::CheckGrouped(const bound::Expr& value, const bound::Select& select, bool in_subquery) {
  for (const bound::ExprPtr& group : select.group_by) {
    if (bound::Same(*group, value)) return;
  }
  if (!in_subquery && value.As<bound::Aggregate>() != nullptr) return;
  if (const auto* column = value.As<bound::Column>()) {
    if (bound::IsOwn(*column->source, select)) {
      Refuse(value.place, Quoted(column->source->name) + "." +
                              Quoted(column->source->columns[column->index].name) +
                              " is neither in the GROUP BY nor in an aggregate");
    }
  }
  for (const bound::Expr* operand : bound::Operands(value)) {
    if (operand != nullptr) CheckGrouped(*operand, select, in_subquery);
  }
  if (const bound::Query* query = bound::QueryOf(value)) CheckGrouped(*query, select);
}

// What a subquery takes from the grouped select around it has to be grouped as well.
void Binder::CheckGrouped(const bound::Query& query, const bound::Select& select) {
  const auto check = [&](const bound::ExprPtr& value) {
    if (value) CheckGrouped(*value, select, true);
  };
  const auto check_from = [&](const auto& self, const bound::From& from) -> void {
    if (const auto* source = std::get_if<std::unique_ptr<bound::Source>>(&from.node)) {
      if ((*source)->query) CheckGrouped(*(*source)->query, select);
      return;
    }
    const auto& join = std::get<bound::Join>(from.node);
    self(self, *join.left);
    self(self, *join.right);
    check(join.on);
  };
  for (const bound::Branch& branch : query.branches) {
    for (const bound::Item& item : branch.select.items) check(item.value);
    for (const bound::FromPtr& from : branch.select.from) check_from(check_from, *from);
    check(branch.select.where);
    for (const bound::ExprPtr& group : branch.select.group_by) check(group);
    check(branch.select.having);
  }
  for (const bound::Order& order : query.order_by) check(order.value);
}

}  // namespace pstolvane1::sql
