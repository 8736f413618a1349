#include <algorithm>
#include <variant>

#include "session/sql/SqliteEmitter.h"

namespace pstolvane1::sql {
namespace {

bool HasFullJoin(const bound::From& from) {
  const auto* join = std::get_if<bound::Join>(&from.node);
  if (join == nullptr) return false;
  return join->kind == JoinKind::kFull || HasFullJoin(*join->left) || HasFullJoin(*join->right);
}

bool IsInner(const bound::From& from) {
  const auto* join = std::get_if<bound::Join>(&from.node);
  if (join == nullptr) return true;
  const bool inner = join->kind == JoinKind::kInner || join->kind == JoinKind::kCross;
  return inner && IsInner(*join->left) && IsInner(*join->right);
}

std::string_view WordsOf(JoinKind kind) {
  switch (kind) {
    case JoinKind::kLeft:
    case JoinKind::kRight:
      return " LEFT JOIN ";
    case JoinKind::kFull:
      return " FULL JOIN ";
    case JoinKind::kCross:
      // SQLite reads the left side of it first, whatever it thinks cheaper. A text can so say which
      // table is walked, for books that were never analysed.
      return " CROSS JOIN ";
    default:
      return " JOIN ";
  }
}

}  // namespace

std::string SqliteEmitter::TablesText(const bound::Select& select) {
  std::string text;
  const bool around = full_join_;
  full_join_ = std::ranges::any_of(select.from,
                                   [](const bound::FromPtr& table) { return HasFullJoin(*table); });
  for (const bound::FromPtr& table : select.from) {
    text += text.empty() ? " FROM " : ", ";
    const bool apart = std::holds_alternative<bound::Join>(table->node) && table != select.from[0];
    text += apart ? "(" + FromText(*table) + ")" : FromText(*table);
  }
  full_join_ = around;
  return text;
}

std::string SqliteEmitter::FromText(const bound::From& from) {
  const auto* join = std::get_if<bound::Join>(&from.node);
  if (join == nullptr) return SourceText(*std::get<std::unique_ptr<bound::Source>>(from.node));
  const JoinParts parts = PartsOf(*join);
  std::string text = parts.tables;
  const char* separator = " ON ";
  for (const SqliteText& on : parts.on) {
    text += separator + (parts.on.size() > 1 ? Bracketed(on, SqliteBinding::kAnd) : on.text);
    separator = " AND ";
  }
  return text;
}

SqliteEmitter::JoinParts SqliteEmitter::PartsOf(const bound::Join& join) {
  // A right join is a left join the other way round, which SQLite has done right for longer.
  const bool turned = join.kind == JoinKind::kRight;
  const bound::From& first = turned ? *join.right : *join.left;
  const bound::From& second = turned ? *join.left : *join.right;
  JoinParts parts{FromText(first) + std::string(WordsOf(join.kind)), {}};
  const auto* nested = std::get_if<bound::Join>(&second.node);
  const bool inner = join.kind == JoinKind::kInner || join.kind == JoinKind::kCross;
  if (nested == nullptr) {
    parts.tables += FromText(second);
  } else if (inner && IsInner(second)) {
    // Of inner joins alone the order does not matter, and SQLite plans them better side by side
    // than in parentheses: a join (b join c on q) on p is a join b join c on q and p.
    JoinParts right = PartsOf(*nested);
    parts.tables += right.tables;
    parts.on = std::move(right.on);
  } else {
    parts.tables += "(" + FromText(second) + ")";
  }
  if (join.on)
    parts.on.push_back(full_join_ ? OnBesideFullJoin(*join.on, second) : Condition(*join.on));
  return parts;
}

// Beside a full join SQLite takes a condition that is the same for every row for one of the whole
// FROM, so that it is made to look at a row.
SqliteText SqliteEmitter::OnBesideFullJoin(const bound::Expr& on, const bound::From& joined) {
  if (const auto* chain = on.As<bound::Logical>(); chain && chain->op == LogicalOp::kAnd) {
    std::vector<std::string> operands;
    for (const bound::ExprPtr& operand : chain->operands) {
      operands.push_back(Bracketed(OnBesideFullJoin(*operand, joined), SqliteBinding::kNot));
    }
    return {ChainText(operands, " AND "), SqliteBinding::kAnd, {}};
  }
  SqliteText condition = Condition(on);
  if (!bound::IsConstant(on)) return condition;
  std::string column;
  bound::ForEachSource(joined, [&](const bound::Source& source) {
    if (column.empty()) column = QuotedName(source.name) + "." + QuotedName(source.columns[0].name);
  });
  return {"CASE WHEN " + column + " IS NULL THEN " + condition.text + " ELSE " + condition.text +
              " END",
          SqliteBinding::kSingle,
          {}};
}

std::string SqliteEmitter::SourceText(const bound::Source& source) {
  if (source.query) {
    std::vector<SqliteState> states;
    std::string text = "(" + QueryText(*source.query, Use::kRows, states) + ")";
    states_[&source] = std::move(states);
    return text + " AS " + QuotedName(source.name);
  }
  std::vector<SqliteState>& states = states_[&source];
  for (const bound::SourceColumn& column : source.columns) {
    SqliteState state = WholeState(column.type);
    const bool raw = column.type.type == Type::kFlag ||
                     (column.type.type == Type::kDate && column.type.has_time);
    if (raw) state.form = SqliteForm::kRaw;
    state.real = IsFloat(column.type.type);
    if (column.type.type == Type::kSingle) state.reach = std::numeric_limits<float>::max();
    states.push_back(state);
  }
  const std::string table = QuotedName(source.table->name);
  return source.name == source.table->name ? table : table + " AS " + QuotedName(source.name);
}

}  // namespace pstolvane1::sql
