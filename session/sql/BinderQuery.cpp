#include <algorithm>

#include "session/sql/Binder.h"
#include "session/sql/Names.h"
#include "session/sql/Refusal.h"

namespace pstolvane1::sql {

bound::Query Bind(const Statement& statement, const Catalog& catalog) {
  Binder binder(statement, catalog);
  bound::Query query = binder.BindQuery(statement.query, nullptr, Binder::Role::kQuery);
  query.named = binder.TakeNamed();
  return query;
}

std::string Quoted(std::string_view name) { return '"' + std::string(name) + '"'; }

bound::ExprPtr MakeExpr(bound::Expr::Node node, const ValueType& type, Place place) {
  auto made = std::make_unique<bound::Expr>();
  made->node = std::move(node);
  made->type = type;
  made->place = place;
  return made;
}

void Binder::Refuse(Place place, std::string_view why) const {
  sql::Refuse(statement_.text, place, why);
}

bound::Query Binder::BindQuery(const Query& query, const Scope* outer, Role role) {
  bound::Query bound;
  Scope first_scope;
  for (const QueryBranch& branch : query.branches) {
    Scope scope{outer, {}};
    bound.branches.push_back({branch.joined_by, BindSelect(branch.select, scope)});
    if (bound.branches.size() == 1) first_scope = std::move(scope);
  }
  UniteColumns(query, bound);
  if (role == Role::kValue && bound.columns.size() != 1) {
    Refuse(query.place, "a subquery that stands for a value has one column, this one has " +
                            std::to_string(bound.columns.size()));
  }
  BindOrder(query, first_scope, bound);
  for (const bound::Branch& branch : bound.branches) CheckGroups(branch.select);
  if (bound.branches.size() == 1 && bound.branches[0].select.aggregated) {
    for (const bound::Order& order : bound.order_by) {
      if (order.value) CheckGrouped(*order.value, bound.branches[0].select, false);
    }
  }
  return bound;
}

void Binder::UniteColumns(const Query& query, bound::Query& bound) {
  const std::size_t count = bound.branches[0].select.items.size();
  for (std::size_t i = 1; i < bound.branches.size(); ++i) {
    const std::size_t other = bound.branches[i].select.items.size();
    if (other == count) continue;
    Refuse(query.branches[i].select.place,
           "all SELECTs of a UNION have the same number of columns: the first has " +
               std::to_string(count) + ", this one has " + std::to_string(other));
  }
  for (std::size_t column = 0; column < count; ++column) {
    std::vector<bound::ExprPtr*> values;
    for (bound::Branch& branch : bound.branches) {
      values.push_back(&branch.select.items[column].value);
    }
    ValueType type = (*values[0])->type;
    if (values.size() > 1) type = Unite(values, (*values[0])->place, "the columns of a UNION");
    bound.columns.push_back({bound.branches[0].select.items[column].name, type});
  }
}

void Binder::CheckDerivedColumns(const Query& query, const bound::Query& bound, const Name& alias) {
  for (std::size_t i = 0; i < bound.columns.size(); ++i) {
    const std::string& name = bound.columns[i].name;
    if (name.empty()) {
      Refuse(query.place, "column " + std::to_string(i + 1) + " of " + Quoted(alias.text) +
                              " has no name: give it an alias");
    }
    for (std::size_t earlier = 0; earlier < i; ++earlier) {
      if (!SameName(bound.columns[earlier].name, name)) continue;
      Refuse(query.place, Quoted(alias.text) + " has two columns of the name " + Quoted(name) +
                              ": give one of them another alias");
    }
  }
}

bool Binder::IsSource(std::string_view name, const Scope& scope) {
  for (const Scope* at = &scope; at != nullptr; at = at->outer) {
    const bool here = std::ranges::any_of(
        at->sources, [&](const bound::Source* source) { return SameName(source->name, name); });
    if (here) return true;
  }
  return false;
}

void Binder::BindOrder(const Query& query, const Scope& scope, bound::Query& bound) {
  for (const OrderItem& item : query.order_by) {
    bound::Order order = BindOrderItem(*item.value, scope, bound);
    order.descending = item.descending;
    bound.order_by.push_back(std::move(order));
  }
}

bound::Order Binder::BindOrderItem(const Expr& value, const Scope& scope, bound::Query& bound) {
  if (const auto* number = value.As<NumberLiteral>()) {
    const std::string& digits = number->digits;
    const bool whole = number->form == NumberLiteral::Form::kWhole && digits.size() < 6;
    const std::size_t position = whole ? std::stoul(digits) : 0;
    if (position < 1 || position > bound.columns.size()) {
      Refuse(value.place, "there is no column " + digits + " to order by: the query has " +
                              std::to_string(bound.columns.size()));
    }
    return {position - 1, nullptr, false};
  }
  // A prefix that names no table of the query is passed over where the name behind it is a column
  // of the result, as older servers do: the reports' texts rely on it.
  const auto* column = value.As<ColumnRef>();
  if (column != nullptr && (!column->table || !IsSource(column->table.text, scope))) {
    if (const auto found = ColumnNamed(column->column, bound)) return {found, nullptr, false};
  }
  if (bound.branches.size() > 1) {
    Refuse(value.place, "a UNION is ordered by the names or the positions of its columns");
  }
  bound::Select& select = bound.branches[0].select;
  bound::ExprPtr by = BindValue(value, {&scope, &select, Clause::kOrderBy});
  if (bound::IsConstant(*by)) Refuse(value.place, "a constant orders nothing");
  for (std::size_t i = 0; i < select.items.size(); ++i) {
    if (bound::Same(*select.items[i].value, *by)) return {i, nullptr, false};
  }
  if (select.distinct) {
    Refuse(value.place, "a SELECT DISTINCT is ordered by columns that it selects");
  }
  return {std::nullopt, std::move(by), false};
}

std::optional<std::size_t> Binder::ColumnNamed(const Name& name, const bound::Query& bound) {
  std::optional<std::size_t> found;
  for (std::size_t i = 0; i < bound.columns.size(); ++i) {
    if (!SameName(bound.columns[i].name, name.text)) continue;
    const auto& items = bound.branches[0].select.items;
    if (found && !bound::Same(*items[*found].value, *items[i].value)) {
      Refuse(name.place, Quoted(name.text) + " is ambiguous: columns " +
                             std::to_string(*found + 1) + " and " + std::to_string(i + 1) +
                             " of the query have this name");
    }
    if (!found) found = i;
  }
  return found;
}

}  // namespace pstolvane1::sql
