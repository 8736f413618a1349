#include "session/sql/SqliteEmitter.h"

#include <algorithm>

#include "session/sql/SqliteFunctions.h"

namespace pstolvane1::sql {
namespace {

std::string WithCollation(const SqliteText& value) {
  return Bracketed(value, SqliteBinding::kSingle) + " COLLATE " + std::string(kTextCollation);
}

// The name of the one column that pst_only is put around.
constexpr std::string_view kOnlyColumn = "value";

std::string LimitText(const bound::Select& select) {
  return select.top ? " LIMIT " + std::to_string(*select.top) : "";
}

}  // namespace

std::string EmitSqlite(const bound::Query& query) {
  std::vector<SqliteState> states;
  return SqliteEmitter().QueryText(query, SqliteEmitter::Use::kStatement, states);
}

std::string SqliteEmitter::QueryText(const bound::Query& query, Use use,
                                     std::vector<SqliteState>& states) {
  const bound::Select& first = query.branches[0].select;
  if (query.branches.size() == 1) {
    std::vector<SqliteText> items;
    const std::string text = SelectText(first, use, first.distinct || use == Use::kCompared, items);
    for (const SqliteText& item : items) states.push_back(item.state);
    return text + OrderText(query, items) + LimitText(first);
  }
  const bool distinct = std::ranges::any_of(query.branches, [](const bound::Branch& branch) {
    return branch.joined_by == UnionKind::kDistinct;
  });
  const bool settle = distinct || !query.order_by.empty() || use == Use::kCompared;
  std::string text;
  for (const bound::Branch& branch : query.branches) {
    if (branch.joined_by != UnionKind::kFirst) {
      text += branch.joined_by == UnionKind::kAll ? " UNION ALL " : " UNION ";
    }
    std::vector<SqliteText> items;
    const std::string select =
        SelectText(branch.select, use, settle || branch.select.distinct, items);
    text +=
        branch.select.top ? "SELECT * FROM (" + select + LimitText(branch.select) + ")" : select;
    for (std::size_t i = 0; i < items.size(); ++i) {
      if (states.size() == i) states.push_back(items[i].state);
      states[i] = Merged(states[i], items[i].state);
    }
  }
  return text + OrderText(query, {});
}

std::string SqliteEmitter::SelectText(const bound::Select& select, Use use, bool settle,
                                      std::vector<SqliteText>& items) {
  // The tables first: their columns' states are known by then.
  const std::string from = TablesText(select);
  // SQLite sees one group of all rows only by an aggregate among the columns.
  bool one_group = select.aggregated && select.group_by.empty() &&
                   std::ranges::none_of(select.items, [](const bound::Item& item) {
                     return bound::HasAggregate(*item.value);
                   });
  std::string text = select.distinct ? "SELECT DISTINCT " : "SELECT ";
  const bool any_row = use == Use::kExistence && !select.aggregated && !select.distinct;
  if (any_row) text += "1";
  for (const bound::Item& item : select.items) {
    if (any_row) break;
    if (!items.empty()) text += ", ";
    const bool now = settle || (use == Use::kStatement && item.value->type.type == Type::kDecimal);
    items.push_back(now ? Settled(*item.value) : Value(*item.value));
    // On the Null side of an outer join SQLite writes its Nulls over the kept result of a subquery
    // that stands alone in a column; a copy of the result is safe.
    const bool kept = use == Use::kRows && item.value->As<bound::ScalarSubquery>() != nullptr;
    if (kept) items.back() = SqliteCall("ifnull", {items.back().text, "NULL"}, items.back().state);
    if (one_group) {
      items.back().text = "CASE WHEN count(*) >= 0 THEN " + items.back().text + " END";
      items.back().binding = SqliteBinding::kSingle;
      one_group = false;
    }
    text += ItemText(item, use, settle, items.back());
  }
  text += from;
  if (select.where) text += " WHERE " + Condition(*select.where).text;
  const char* separator = " GROUP BY ";
  for (const bound::ExprPtr& group : select.group_by) {
    text += separator + Compared(*group).text;
    separator = ", ";
  }
  if (select.having) text += " HAVING " + Condition(*select.having).text;
  return text;
}

std::string SqliteEmitter::ItemText(const bound::Item& item, Use use, bool settled,
                                    const SqliteText& value) {
  if (use == Use::kOnly) return "pst_only(" + value.text + ")";
  const bool collate = settled && item.value->type.type == Type::kText && use != Use::kCompared;
  const std::string text = collate ? WithCollation(value) : value.text;
  const std::string_view name = use == Use::kOnlyRows ? kOnlyColumn : item.name;
  return name.empty() ? text : text + " AS " + QuotedName(name);
}

std::string SqliteEmitter::OrderText(const bound::Query& query,
                                     const std::vector<SqliteText>& items) {
  std::string text;
  for (const bound::Order& order : query.order_by) {
    text += text.empty() ? " ORDER BY " : ", ";
    if (order.value) {
      text += Compared(*order.value).text;
    } else {
      const std::size_t column = *order.column;
      const ValueType& type = query.columns[column].type;
      const bool raw = !items.empty() && items[column].state.form != SqliteForm::kSettled;
      text += raw ? SettledText(items[column], type).text : std::to_string(column + 1);
      // The columns of a union have the collation already, and SQLite loses the GROUP BY of a
      // union's last branch where the order names one.
      const bool collate = type.type == Type::kText && query.branches.size() == 1;
      if (collate) text += " COLLATE " + std::string(kTextCollation);
    }
    if (order.descending) text += " DESC";
  }
  return text;
}

std::string SqliteEmitter::OnlyText(const bound::Query& query, std::vector<SqliteState>& states) {
  const bound::Select& select = query.branches[0].select;
  const bool alone = query.branches.size() == 1;
  const bool one_row = alone && ((select.aggregated && select.group_by.empty()) ||
                                 (select.top && *select.top <= 1) || select.from.empty());
  if (one_row) return QueryText(query, Use::kRows, states);
  // An aggregate of SQLite's belongs to the query whose columns it takes, so that a value that
  // takes none of its own query's cannot stand in one.
  const bool plain = alone && !select.aggregated && !select.distinct && !select.top &&
                     bound::TakesColumnOf(*select.items[0].value, select);
  if (plain) {
    std::vector<SqliteText> items;
    std::string text = SelectText(select, Use::kOnly, false, items);
    states.push_back(items[0].state);
    return text;
  }
  return "SELECT pst_only(" + QuotedName(kOnlyColumn) + ") FROM (" +
         QueryText(query, Use::kOnlyRows, states) + ")";
}

}  // namespace pstolvane1::sql
