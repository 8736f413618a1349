#include <algorithm>
#include <set>
#include <variant>

#include "session/sql/PostgresEmitter.h"

namespace pstolvane1::sql {
namespace {

std::string_view WordsOf(JoinKind kind) {
  switch (kind) {
    case JoinKind::kInner:
      return " JOIN ";
    case JoinKind::kLeft:
      return " LEFT JOIN ";
    case JoinKind::kRight:
      return " RIGHT JOIN ";
    case JoinKind::kFull:
      return " FULL JOIN ";
    case JoinKind::kCross:
      return " CROSS JOIN ";
  }
  return "";
}

using Sources = std::set<const bound::Source*>;

Sources SourcesOf(const bound::From& from) {
  Sources sources;
  bound::ForEachSource(from, [&](const bound::Source& source) { sources.insert(&source); });
  return sources;
}

// Whether the value takes columns of these sources and of no others.
bool TakesOnly(const bound::Expr& value, const Sources& sources, bool& takes) {
  if (bound::QueryOf(value) != nullptr) return false;
  if (const auto* column = value.As<bound::Column>()) {
    takes = true;
    return sources.contains(column->source);
  }
  return std::ranges::all_of(bound::Operands(value), [&](const bound::Expr* operand) {
    return operand == nullptr || TakesOnly(*operand, sources, takes);
  });
}

bool IsOf(const bound::Expr& value, const Sources& sources) {
  bool takes = false;
  return TakesOnly(value, sources, takes) && takes;
}

// The conditions of a full join that the server can do: what is of one side equals what is of the
// other.
bool IsMergeable(const bound::Expr& on, const Sources& left, const Sources& right) {
  if (const auto* chain = on.As<bound::Logical>(); chain && chain->op == LogicalOp::kAnd) {
    return std::ranges::all_of(chain->operands, [&](const bound::ExprPtr& operand) {
      return IsMergeable(*operand, left, right);
    });
  }
  const auto* compared = on.As<bound::Comparison>();
  if (compared == nullptr || compared->op != CompareOp::kEqual) return false;
  return (IsOf(*compared->left, left) && IsOf(*compared->right, right)) ||
         (IsOf(*compared->left, right) && IsOf(*compared->right, left));
}

bool IsNative(const bound::Join& join) {
  return join.kind != JoinKind::kFull ||
         IsMergeable(*join.on, SourcesOf(*join.left), SourcesOf(*join.right));
}

// In parentheses where it is a join and does not become one table.
std::string Apart(const bound::From& from, const std::string& text) {
  const auto* join = std::get_if<bound::Join>(&from.node);
  return join != nullptr && IsNative(*join) ? "(" + text + ")" : text;
}

}  // namespace

std::string PostgresEmitter::TablesText(const bound::Select& select) {
  std::string text;
  for (const bound::FromPtr& table : select.from) {
    text += (text.empty() ? " FROM " : ", ") + FromText(*table);
  }
  return text;
}

std::string PostgresEmitter::FromText(const bound::From& from) {
  const auto* join = std::get_if<bound::Join>(&from.node);
  if (join == nullptr) return SourceText(*std::get<std::unique_ptr<bound::Source>>(from.node));
  if (!IsNative(*join)) return FullJoinText(*join);
  std::string text = FromText(*join->left) + std::string(WordsOf(join->kind));
  text += Apart(*join->right, FromText(*join->right));
  if (join->on) text += " ON " + Condition(*join->on).text;
  return text;
}

// The server has a full join only where sides are equal. Any other is made of two: the left side
// finds the numbered rows of the right one, and what of those was found by none comes beside it.
std::string PostgresEmitter::FullJoinText(const bound::Join& join) {
  const std::string number = std::to_string(++full_joins_);
  const std::string rows = QuotedName("right" + number);
  const std::string found = QuotedName("found" + number);
  const std::string joined = QuotedName("joined" + number);
  const std::string place = QuotedName("place");

  // The columns of a side get names of their own, under which they stand in the derived table.
  int column = 0;
  std::string outer_list;
  std::vector<std::pair<const bound::Source*, std::vector<std::string>>> later;
  const auto list = [&](const bound::From& side, const std::string& from) {
    std::string inner_list;
    bound::ForEachSource(side, [&](const bound::Source& source) {
      std::vector<std::string> within;
      std::vector<std::string> above;
      for (std::size_t i = 0; i < source.columns.size(); ++i) {
        const std::string name = QuotedName("c" + std::to_string(++column));
        const std::string value = ColumnText({&source, i}).text;
        inner_list += value + " AS " + name + ", ";
        outer_list += (outer_list.empty() ? "" : ", ") +
                      (from.empty() ? value : from + "." + name) + " AS " + name;
        within.push_back(from.empty() ? value : found + "." + name);
        above.push_back(joined + "." + name);
      }
      if (!from.empty()) moved_[&source] = std::move(within);
      later.emplace_back(&source, std::move(above));
    });
    return inner_list;
  };
  // A value may be written more than once, and its subqueries with it.
  for (const bound::From* side : {join.left.get(), join.right.get()}) {
    bound::ForEachSource(*side, [&](const bound::Source& source) { moved_.erase(&source); });
    ordered_ = false;
  }
  const std::string left = FromText(*join.left);
  static_cast<void>(list(*join.left, ""));
  const std::string right = FromText(*join.right);
  const std::string right_list = list(*join.right, rows);
  const std::string on = Condition(*join.on).text;
  for (auto& [source, names] : later) moved_[source] = std::move(names);
  return "(WITH " + rows + " AS MATERIALIZED (SELECT " + right_list + "row_number() OVER () AS " +
         place + " FROM " + right + ") SELECT " + outer_list + " FROM (" + Apart(*join.left, left) +
         " LEFT JOIN " + rows + " AS " + found + " ON " + on + ") FULL JOIN " + rows + " ON " +
         found + "." + place + " = " + rows + "." + place + ") AS " + joined;
}

std::string PostgresEmitter::SourceText(const bound::Source& source) {
  const std::string name = PostgresName(source.name);
  if (source.query) {
    const bool keeps = ordered_ && source.query->branches.size() == 1 &&
                       !source.query->branches[0].select.distinct;
    const std::string rows = QueryText(*source.query, keeps ? Use::kOrdered : Use::kRows);
    if (keeps) orders_[&source] = DerivedOrder(source);
    return "(" + rows + ") AS " + name;
  }
  if (ordered_) orders_[&source] = TableOrder(source);
  const std::string& schema = source.table->schema;
  const std::string table =
      (schema.empty() ? "" : QuotedName(schema) + ".") + QuotedName(source.table->name);
  return source.name == source.table->name ? table : table + " AS " + name;
}

}  // namespace pstolvane1::sql
