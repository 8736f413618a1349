// FROM, WHERE, GROUP BY, HAVING, SELECT, DISTINCT, ORDER BY, TOP and UNION, in that order.
#include <algorithm>
#include <limits>
#include <stdexcept>

#include "tests/sql/model/Append.h"
#include "tests/sql/model/Evaluator.h"

namespace pstolvane1::sql::model {
namespace {

bool SameRow(const Row& a, const Row& b, const std::vector<Column>& columns) {
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (Order(a[i], b[i], columns[i].kind) != 0) return false;
  }
  return true;
}

// The first of each set of equal elements stays.
template <typename T, typename Same>
void DropRepeated(std::vector<T>& all, Same same) {
  std::vector<T> kept;
  for (T& one : all) {
    const auto equals = [&](const T& other) { return same(other, one); };
    if (std::none_of(kept.begin(), kept.end(), equals)) kept.push_back(std::move(one));
  }
  all = std::move(kept);
}

Row Together(const Row& left, const Row& right) {
  Row row = left;
  Append(row, right);
  return row;
}

bool SelectsStarOf(const SelectItem& item, const Column& column) {
  return !item.star_of || SameName(item.star_of.text, column.table);
}

bool IsGrouped(const Select& select, const std::vector<OrderItem>& order) {
  const auto aggregates = [](const ExprPtr& e) { return e && !AggregatesOf(*e).empty(); };
  return !select.group_by.empty() || select.having != nullptr ||
         std::any_of(select.items.begin(), select.items.end(),
                     [&](const SelectItem& item) { return aggregates(item.value); }) ||
         std::any_of(order.begin(), order.end(),
                     [&](const OrderItem& item) { return aggregates(item.value); });
}

// The column of the result that an ORDER BY names by its position or alias; -1 where it is an
// expression of its own.
int ColumnOfKey(const OrderItem& key, const std::vector<SelectItem>& items) {
  if (const auto* number = key.value->As<NumberLiteral>()) return std::stoi(number->digits) - 1;
  const auto* column = key.value->As<ColumnRef>();
  if (column == nullptr || column->table) return -1;
  for (std::size_t i = 0; i < items.size(); ++i) {
    if (items[i].alias && SameName(items[i].alias.text, column->column.text)) {
      return static_cast<int>(i);
    }
  }
  return -1;
}

template <typename T>
void SortByKeys(std::vector<T>& rows, const std::vector<OrderItem>& order,
                const std::vector<Kind>& kinds) {
  std::stable_sort(rows.begin(), rows.end(), [&](const T& a, const T& b) {
    for (std::size_t i = 0; i < order.size(); ++i) {
      const int way = Order(a.keys[i], b.keys[i], kinds[i]);
      if (way != 0) return order[i].descending ? way > 0 : way < 0;
    }
    return false;
  });
}

}  // namespace

Evaluator::Evaluator(const Statement& statement, const std::vector<Table>& tables)
    : statement_(statement),
      tables_(tables),
      kinds_(statement.expressions),
      columns_(statement.selects),
      rows_(statement.selects),
      outermost_(std::numeric_limits<int>::max()) {}

Relation Evaluator::Run() { return Rows(statement_.query, nullptr); }

Relation Evaluator::Columns() { return {ColumnsOf(statement_.query, nullptr), {}}; }

const Table& Evaluator::TableOf(const Name& name) const {
  for (const Table& table : tables_) {
    if (SameName(table.name, name.text)) return table;
  }
  throw std::logic_error("model: no table " + name.text);
}

std::vector<Column> Evaluator::ColumnsOf(const TableRef& ref, const Frame* outer) {
  std::vector<Column> columns;
  if (const auto* named = ref.As<NamedTable>()) {
    columns = TableOf(named->table).content.columns;
    for (Column& column : columns) column.table = (named->alias ? named->alias : named->table).text;
  } else if (const auto* derived = ref.As<DerivedTable>()) {
    columns = ColumnsOf(*derived->query, outer);
    for (Column& column : columns) column.table = derived->alias.text;
  } else {
    const auto* join = ref.As<Join>();
    columns = ColumnsOf(*join->left, outer);
    Append(columns, ColumnsOf(*join->right, outer));
  }
  return columns;
}

std::vector<Column> Evaluator::ColumnsOfFrom(const Select& select, const Frame* outer) {
  std::vector<Column> columns;
  for (const TableRefPtr& table : select.from) Append(columns, ColumnsOf(*table, outer));
  return columns;
}

std::vector<Column> Evaluator::ColumnsOf(const Select& select, const Frame* outer) {
  std::optional<std::vector<Column>>& known = columns_.at(select.id);
  if (!known) known = FindColumns(select, outer);
  return *known;
}

std::vector<Column> Evaluator::FindColumns(const Select& select, const Frame* outer) {
  const std::vector<Column> from = ColumnsOfFrom(select, outer);
  const Frame frame{&from, nullptr, nullptr, outer};
  std::vector<Column> columns;
  for (const SelectItem& item : select.items) {
    if (item.IsStar()) {
      for (const Column& column : from) {
        if (SelectsStarOf(item, column)) columns.push_back({"", column.name, column.kind});
      }
      continue;
    }
    const auto* named = item.value->As<ColumnRef>();
    const std::string own = named != nullptr ? named->column.text : "";
    columns.push_back({"", item.alias ? item.alias.text : own, Plain(KindOf(*item.value, frame))});
  }
  return columns;
}

// A column that is Null in every branch is a whole number.
std::vector<Column> Evaluator::ColumnsOf(const Query& query, const Frame* outer) {
  std::vector<Column> columns = ColumnsOf(query.branches[0].select, outer);
  for (const QueryBranch& branch : query.branches) {
    const std::vector<Column> others = ColumnsOf(branch.select, outer);
    for (std::size_t i = 0; i < columns.size(); ++i) {
      columns[i].kind = Common(columns[i].kind, others[i].kind);
    }
  }
  for (Column& column : columns) {
    if (column.kind.type == Type::kNull) column.kind.type = Type::kWhole;
  }
  return columns;
}

Relation Evaluator::Rows(const TableRef& ref, const Frame* outer) {
  if (const auto* join = ref.As<Join>()) return Joined(*join, outer);
  const auto* derived = ref.As<DerivedTable>();
  return {ColumnsOf(ref, outer), derived != nullptr
                                     ? Rows(*derived->query, outer).rows
                                     : TableOf(ref.As<NamedTable>()->table).content.rows};
}

Relation Evaluator::Joined(const Join& join, const Frame* outer) {
  const Relation left = Rows(*join.left, outer);
  const Relation right = Rows(*join.right, outer);
  Relation joined;
  joined.columns = left.columns;
  Append(joined.columns, right.columns);
  std::vector<bool> right_met(right.rows.size(), false);
  const bool keeps_left = join.kind == JoinKind::kLeft || join.kind == JoinKind::kFull;
  const bool keeps_right = join.kind == JoinKind::kRight || join.kind == JoinKind::kFull;
  for (const Row& left_row : left.rows) {
    bool met = false;
    for (std::size_t i = 0; i < right.rows.size(); ++i) {
      const Row row = Together(left_row, right.rows[i]);
      const Frame frame{&joined.columns, &row, nullptr, outer};
      if (join.on && TruthOf(*join.on, frame) != Truth::kTrue) continue;
      joined.rows.push_back(row);
      met = true;
      right_met[i] = true;
    }
    if (!met && keeps_left) joined.rows.push_back(Together(left_row, Row(right.columns.size())));
  }
  for (std::size_t i = 0; keeps_right && i < right.rows.size(); ++i) {
    if (!right_met[i]) joined.rows.push_back(Together(Row(left.columns.size()), right.rows[i]));
  }
  return joined;
}

// Without a FROM there is one row, of no columns.
Relation Evaluator::RowsOfFrom(const Select& select, const Frame* outer) {
  Relation all{{}, {Row()}};
  for (const TableRefPtr& table : select.from) {
    const Relation next = Rows(*table, outer);
    Relation product{all.columns, {}};
    Append(product.columns, next.columns);
    for (const Row& left : all.rows) {
      for (const Row& right : next.rows) product.rows.push_back(Together(left, right));
    }
    all = std::move(product);
  }
  return all;
}

Evaluator::Keyed Evaluator::Selected(const Select& select, const std::vector<OrderItem>& order,
                                     const Frame& frame) {
  Keyed selected;
  for (const SelectItem& item : select.items) {
    if (!item.IsStar()) {
      selected.row.push_back(ValueOf(*item.value, frame));
      continue;
    }
    for (std::size_t i = 0; i < frame.columns->size(); ++i) {
      if (SelectsStarOf(item, (*frame.columns)[i])) selected.row.push_back((*frame.row)[i]);
    }
  }
  for (const OrderItem& key : order) {
    const int column = ColumnOfKey(key, select.items);
    selected.keys.push_back(column >= 0 ? selected.row[static_cast<std::size_t>(column)]
                                        : ValueOf(*key.value, frame));
  }
  return selected;
}

std::vector<Kind> Evaluator::KindsOfKeys(const Select& select, const std::vector<OrderItem>& order,
                                         const Frame& frame) {
  const std::vector<Column> columns = ColumnsOf(select, frame.outer);
  std::vector<Kind> kinds;
  for (const OrderItem& key : order) {
    const int column = ColumnOfKey(key, select.items);
    kinds.push_back(column >= 0 ? columns[static_cast<std::size_t>(column)].kind
                                : KindOf(*key.value, frame));
  }
  return kinds;
}

// Every aggregate is reckoned for every group, also for those that HAVING leaves out.
std::vector<Evaluator::Keyed> Evaluator::Grouped(const Select& select,
                                                 const std::vector<OrderItem>& order,
                                                 const Relation& from, const Frame* outer) {
  struct Group {
    Row keys;
    std::vector<const Row*> rows;
  };
  std::vector<Column> key_columns;
  const Frame any{&from.columns, nullptr, nullptr, outer};
  for (const ExprPtr& key : select.group_by) key_columns.push_back({"", "", KindOf(*key, any)});
  std::vector<Group> groups;
  if (select.group_by.empty()) groups.push_back({});
  for (const Row& row : from.rows) {
    Row keys;
    const Frame frame{&from.columns, &row, nullptr, outer};
    for (const ExprPtr& key : select.group_by) keys.push_back(ValueOf(*key, frame));
    auto group = std::find_if(groups.begin(), groups.end(),
                              [&](const Group& g) { return SameRow(g.keys, keys, key_columns); });
    if (group == groups.end()) group = groups.insert(groups.end(), Group{keys, {}});
    group->rows.push_back(&row);
  }
  const Row nothing(from.columns.size());
  std::vector<Keyed> selected;
  for (const Group& group : groups) {
    const Row& row = group.rows.empty() ? nothing : *group.rows[0];
    const Frame frame{&from.columns, &row, &group.rows, outer};
    for (const SelectItem& item : select.items) {
      for (const Call* call : AggregatesOf(*item.value)) (void)ValueOfAggregate(*call, frame);
    }
    if (select.having && TruthOf(*select.having, frame) != Truth::kTrue) continue;
    selected.push_back(Selected(select, order, frame));
  }
  return selected;
}

Relation Evaluator::Rows(const Select& select, const std::vector<OrderItem>& order,
                         const Frame* outer) {
  Relation from = RowsOfFrom(select, outer);
  std::vector<Row> kept;
  for (const Row& row : from.rows) {
    const Frame frame{&from.columns, &row, nullptr, outer};
    if (!select.where || TruthOf(*select.where, frame) == Truth::kTrue) kept.push_back(row);
  }
  from.rows = std::move(kept);
  std::vector<Keyed> selected;
  if (IsGrouped(select, order)) {
    selected = Grouped(select, order, from, outer);
  } else {
    for (const Row& row : from.rows) {
      selected.push_back(Selected(select, order, {&from.columns, &row, nullptr, outer}));
    }
  }
  Relation result{ColumnsOf(select, outer), {}};
  if (select.distinct) {
    DropRepeated(selected, [&result](const Keyed& a, const Keyed& b) {
      return SameRow(a.row, b.row, result.columns);
    });
  }
  SortByKeys(selected, order, KindsOfKeys(select, order, {&from.columns, nullptr, nullptr, outer}));
  if (select.top && selected.size() > static_cast<std::size_t>(*select.top)) {
    selected.resize(static_cast<std::size_t>(*select.top));
  }
  for (Keyed& one : selected) result.rows.push_back(std::move(one.row));
  return result;
}

Relation Evaluator::Unioned(const Query& query, const Frame* outer) {
  Relation all{ColumnsOf(query, outer), {}};
  for (const QueryBranch& branch : query.branches) {
    const Relation next = Rows(branch.select, {}, outer);
    for (const Row& row : next.rows) {
      Row converted;
      for (std::size_t i = 0; i < row.size(); ++i) {
        converted.push_back(Convert(row[i], next.columns[i].kind, all.columns[i].kind));
      }
      all.rows.push_back(std::move(converted));
    }
    if (branch.joined_by == UnionKind::kDistinct) {
      DropRepeated(all.rows,
                   [&all](const Row& a, const Row& b) { return SameRow(a, b, all.columns); });
    }
  }
  return all;
}

Relation Evaluator::Rows(const Query& query, const Frame* outer) {
  std::optional<Relation>& known = rows_.at(query.branches[0].select.id);
  if (known) return *known;
  const int outermost_before = outermost_;
  outermost_ = std::numeric_limits<int>::max();
  Relation rows = FindRows(query, outer);
  if (outer == nullptr || outermost_ > outer->depth) known = rows;
  outermost_ = std::min(outermost_, outermost_before);
  return rows;
}

Relation Evaluator::FindRows(const Query& query, const Frame* outer) {
  if (query.branches.size() == 1) {
    Relation rows = Rows(query.branches[0].select, query.order_by, outer);
    rows.columns = ColumnsOf(query, outer);
    return rows;
  }
  Relation all = Unioned(query, outer);
  std::vector<Keyed> keyed;
  std::vector<Kind> kinds;
  const std::vector<SelectItem>& items = query.branches[0].select.items;
  for (const OrderItem& key : query.order_by) {
    kinds.push_back(all.columns.at(static_cast<std::size_t>(ColumnOfKey(key, items))).kind);
  }
  for (Row& row : all.rows) {
    Keyed one{std::move(row), {}};
    for (const OrderItem& key : query.order_by) {
      one.keys.push_back(one.row[static_cast<std::size_t>(ColumnOfKey(key, items))]);
    }
    keyed.push_back(std::move(one));
  }
  SortByKeys(keyed, query.order_by, kinds);
  all.rows.clear();
  for (Keyed& one : keyed) all.rows.push_back(std::move(one.row));
  return all;
}

}  // namespace pstolvane1::sql::model
