#include "session/sql/PostgresEmitter.h"

#include <algorithm>
#include <utility>

namespace pstolvane1::sql {
namespace {

// Rows whose columns are known by their place alone.
constexpr std::string_view kRows = "rows";

std::string PlaceName(std::size_t column) { return "c" + std::to_string(column + 1); }

std::string PlaceColumn(std::size_t column) {
  return QuotedName(kRows) + "." + QuotedName(PlaceName(column));
}

// (text) AS "rows"("c1", "c2")
std::string AsRows(const std::string& text, std::size_t columns) {
  std::string rows = "(" + text + ") AS " + QuotedName(kRows);
  for (std::size_t i = 0; i < columns; ++i) {
    rows += (i == 0 ? "(" : ", ") + QuotedName(PlaceName(i));
  }
  return rows + ")";
}

bool IsText(const bound::SourceColumn& column) { return column.type.type == Type::kText; }

bool HasText(const bound::Query& query) { return std::ranges::any_of(query.columns, IsText); }

std::string LimitText(const bound::Select& select) {
  return select.top ? " LIMIT " + std::to_string(*select.top) : "";
}

// Null stands before every value.
std::string Directed(const std::string& by, bool descending) {
  return by + (descending ? " DESC NULLS LAST" : " NULLS FIRST");
}

}  // namespace

std::string EmitPostgres(const bound::Query& query, const Statement& statement,
                         Characters characters) {
  return PostgresEmitter(statement, characters).QueryText(query, PostgresEmitter::Use::kStatement);
}

std::string PostgresEmitter::WithoutRepeats(const std::string& text,
                                            const bound::Query& query) const {
  std::string keys;
  std::string ties;
  std::string columns;
  for (std::size_t i = 0; i < query.columns.size(); ++i) {
    const std::string column = PlaceColumn(i);
    const bool is_text = IsText(query.columns[i]);
    keys += (i == 0 ? "" : ", ") + (is_text ? Folded(column) : column);
    if (is_text) ties += ", " + column + " COLLATE \"C\" DESC";
    columns += (i == 0 ? "" : ", ") + column;
  }
  return "SELECT DISTINCT ON (" + keys + ") " + columns + " FROM " +
         AsRows(text, query.columns.size()) + " ORDER BY " + keys + ties;
}

std::string PostgresEmitter::QueryText(const bound::Query& query, Use use) {
  const bound::Select& first = query.branches[0].select;
  const bool texts = use != Use::kCompared && HasText(query);
  if (query.branches.size() == 1 && !(first.distinct && texts)) return PlainText(query, use);
  // Texts that are made distinct need rows below, and so does an order by a text.
  const std::string text = BranchesText(query, use);
  const bool order_below = std::ranges::none_of(query.order_by, [&](const bound::Order& order) {
    return texts && IsText(query.columns[*order.column]);
  });
  const bool named = std::ranges::none_of(query.branches, [&](const bound::Branch& branch) {
    return texts && (branch.joined_by == UnionKind::kDistinct || branch.select.distinct);
  });
  const std::string limit = query.branches.size() == 1 ? LimitText(first) : "";
  if (order_below && named) return text + OrderText(query, use, {}) + limit;
  std::string select = "SELECT ";
  std::vector<std::string> columns;
  for (std::size_t i = 0; i < query.columns.size(); ++i) {
    columns.push_back(PlaceColumn(i));
    select += (i == 0 ? "" : ", ") + columns.back();
    const std::string& name = query.columns[i].name;
    if (!name.empty()) select += " AS " + PostgresName(name);
  }
  return select + " FROM " + AsRows(text, columns.size()) + OrderText(query, use, columns) + limit;
}

std::string PostgresEmitter::BranchesText(const bound::Query& query, Use use) {
  const bool texts = use != Use::kCompared && HasText(query);
  std::string text;
  for (const bound::Branch& branch : query.branches) {
    std::vector<std::string> items;
    std::string select = SelectText(branch.select, use, items);
    if (branch.select.distinct && texts) select = WithoutRepeats(select, query);
    const bool alone = query.branches.size() == 1;
    if (!alone && branch.select.top) select = "(" + select + LimitText(branch.select) + ")";
    if (!alone && branch.select.distinct && texts) select = "(" + select + ")";
    if (branch.joined_by == UnionKind::kFirst) {
      text = select;
    } else if (branch.joined_by == UnionKind::kDistinct && texts) {
      text = WithoutRepeats(text + " UNION ALL " + select, query);
      if (&branch != &query.branches.back()) text = "(" + text + ")";
    } else {
      text += (branch.joined_by == UnionKind::kAll ? " UNION ALL " : " UNION ") + select;
    }
  }
  return text;
}

std::string PostgresEmitter::PlainText(const bound::Query& query, Use use) {
  const bound::Select& select = query.branches[0].select;
  std::vector<std::string> items;
  std::string text = SelectText(select, use, items);
  if (select.aggregated) grouped_.push_back(&select);
  text += OrderText(query, use, items);
  if (select.aggregated) grouped_.pop_back();
  return text + LimitText(select);
}

std::string PostgresEmitter::SelectText(const bound::Select& select, Use use,
                                        std::vector<std::string>& items) {
  // The tables first: a full join moves their columns.
  const bool ordered = (use == Use::kStatement || use == Use::kOrdered) && !select.distinct;
  const bool around = std::exchange(ordered_, ordered && !select.aggregated);
  const std::string from = TablesText(select);
  ordered_ = around;
  const std::string where = select.where ? " WHERE " + Condition(*select.where).text : "";
  std::string groups;
  for (const bound::ExprPtr& group : select.group_by) {
    groups += (groups.empty() ? " GROUP BY " : ", ") + Compared(*group).text;
  }
  if (select.aggregated) grouped_.push_back(&select);
  const bool texts =
      use != Use::kCompared && std::ranges::any_of(select.items, [](const auto& item) {
        return item.value->type.type == Type::kText;
      });
  std::string text = select.distinct && !texts ? "SELECT DISTINCT " : "SELECT ";
  const bool any_row = use == Use::kExistence && !select.aggregated && !select.distinct;
  if (any_row) text += "1";
  for (const bound::Item& item : select.items) {
    if (any_row) break;
    if (!items.empty()) text += ", ";
    items.push_back((use == Use::kCompared ? Compared(*item.value) : Value(*item.value)).text);
    text += items.back();
    if (!item.name.empty()) text += " AS " + PostgresName(item.name);
  }
  if (use == Use::kOrdered && !select.distinct) text += KeysBeside(select);
  text += from + where + groups;
  if (select.having) text += " HAVING " + Condition(*select.having).text;
  if (select.aggregated) grouped_.pop_back();
  return text;
}

std::string PostgresEmitter::OrderText(const bound::Query& query, Use use,
                                       const std::vector<std::string>& items) {
  std::string text;
  std::vector<std::string> ordered;
  const auto add = [&](const std::string& by, bool descending) {
    if (std::ranges::find(ordered, by) != ordered.end()) return;
    ordered.push_back(by);
    text += (text.empty() ? " ORDER BY " : ", ") + Directed(by, descending);
  };
  for (const bound::Order& order : query.order_by) {
    if (order.value) {
      add(Compared(*order.value).text, order.descending);
    } else if (use != Use::kCompared && IsText(query.columns[*order.column])) {
      add(Folded(items[*order.column]), order.descending);
    } else {
      add(std::to_string(*order.column + 1), order.descending);
    }
  }
  for (const std::string& by : RowOrder(query, use, items)) add(by, false);
  return text;
}

}  // namespace pstolvane1::sql
