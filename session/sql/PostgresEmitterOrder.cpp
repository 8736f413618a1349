#include <algorithm>

#include "session/sql/PostgresEmitter.h"

namespace pstolvane1::sql {
namespace {

bool IsDistinct(const bound::Query& query) {
  return query.branches[0].select.distinct ||
         std::ranges::any_of(query.branches, [](const bound::Branch& branch) {
           return branch.joined_by == UnionKind::kDistinct;
         });
}

}  // namespace

std::vector<std::string> PostgresEmitter::TableOrder(const bound::Source& source) {
  std::vector<std::string> order;
  for (const std::string& name : source.table->row_order) {
    const CatalogColumn* column = source.table->Find(name);
    if (column == nullptr) {
      order.push_back(PostgresName(source.name) + "." + QuotedName(name));
      continue;
    }
    const auto index = static_cast<std::size_t>(column - source.table->columns.data());
    const std::string text = ColumnText({&source, index}).text;
    order.push_back(source.columns[index].type.type == Type::kText ? Folded(text) : text);
  }
  return order;
}

std::vector<std::string> PostgresEmitter::RowOrder(const bound::Select& select) {
  std::vector<std::string> order;
  if (select.aggregated) {
    // As the GROUP BY has them.
    std::vector<const bound::Select*> around;
    around.swap(grouped_);
    for (const bound::ExprPtr& group : select.group_by) order.push_back(Compared(*group).text);
    around.swap(grouped_);
    return order;
  }
  for (const bound::FromPtr& from : select.from) {
    bound::ForEachSource(*from, [&](const bound::Source& source) {
      const auto known = orders_.find(&source);
      if (known != orders_.end()) {
        order.insert(order.end(), known->second.begin(), known->second.end());
      }
    });
  }
  return order;
}

std::vector<std::string> PostgresEmitter::RowOrder(const bound::Query& query, Use use,
                                                   const std::vector<std::string>& items) {
  if (use != Use::kStatement) return {};
  const bound::Select& first = query.branches[0].select;
  if (!IsDistinct(query)) {
    return query.branches.size() == 1 ? RowOrder(first) : std::vector<std::string>{};
  }
  std::vector<std::string> order;
  for (std::size_t i = 0; i < query.columns.size(); ++i) {
    const bool is_text = query.columns[i].type.type == Type::kText;
    order.push_back(is_text ? Folded(items.at(i)) : std::to_string(i + 1));
  }
  return order;
}

// The keys of the tables below are selected beside the columns, under names of their own.
std::string PostgresEmitter::KeysBeside(const bound::Select& select) {
  std::string text;
  kept_order_.clear();
  for (const std::string& key : RowOrder(select)) {
    kept_order_.push_back("key~" + std::to_string(kept_order_.size() + 1));
    text += ", " + key + " AS " + QuotedName(kept_order_.back());
  }
  return text;
}

std::vector<std::string> PostgresEmitter::DerivedOrder(const bound::Source& source) {
  std::vector<std::string> order;
  for (const std::string& name : kept_order_) {
    order.push_back(PostgresName(source.name) + "." + QuotedName(name));
  }
  kept_order_.clear();
  return order;
}

}  // namespace pstolvane1::sql
