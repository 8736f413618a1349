#include "session/sql/SqliteEmitter.h"

namespace pstolvane1::sql {
namespace {

CompareOp Turned(CompareOp op) {
  switch (op) {
    case CompareOp::kLess:
      return CompareOp::kGreater;
    case CompareOp::kLessOrEqual:
      return CompareOp::kGreaterOrEqual;
    case CompareOp::kGreater:
      return CompareOp::kLess;
    case CompareOp::kGreaterOrEqual:
      return CompareOp::kLessOrEqual;
    default:
      return op;
  }
}

const std::string* LiteralOf(const bound::Expr& value, Type type) {
  const auto* literal = value.As<bound::Literal>();
  return literal != nullptr && !literal->is_null && value.type.type == type ? &literal->text
                                                                            : nullptr;
}

SqliteText Compare(const SqliteText& left, CompareOp op, const SqliteText& right) {
  return {Bracketed(left, SqliteBinding::kAdd) + std::string(SignOf(op)) +
              Bracketed(right, SqliteBinding::kAdd),
          SqliteBinding::kCompare,
          {}};
}

SqliteText Negated(const SqliteText& condition, bool negated) {
  if (!negated) return condition;
  return {"NOT " + Bracketed(condition, SqliteBinding::kSingle), SqliteBinding::kNot, {}};
}

// Of "column = constant" SQLite puts the constant in the column's place wherever else it stands, be
// the column a whole number and the constant a fraction; a sign in front of the column prevents it.
SqliteText Detached(SqliteText text, const bound::Expr& value) {
  const auto* convert = value.As<bound::Convert>();
  const bool column = convert != nullptr && convert->operand->As<bound::Column>() != nullptr;
  const bool widened =
      column && IsWhole(convert->operand->type.type) && value.type.type > Type::kBigWhole;
  if (!widened || text.binding != SqliteBinding::kSingle) return text;
  return {"+" + text.text, SqliteBinding::kSign, text.state};
}

}  // namespace

SqliteText SqliteEmitter::Condition(const bound::Expr& condition) {
  if (const auto* node = condition.As<bound::Comparison>()) return ComparisonText(*node);
  if (const auto* node = condition.As<bound::Not>()) {
    return Negated(Condition(*node->operand), true);
  }
  if (const auto* node = condition.As<bound::Logical>()) {
    const bool conjunction = node->op == LogicalOp::kAnd;
    const SqliteBinding own = conjunction ? SqliteBinding::kAnd : SqliteBinding::kOr;
    std::vector<std::string> operands;
    for (const bound::ExprPtr& operand : node->operands) {
      operands.push_back(
          Bracketed(Condition(*operand), conjunction ? SqliteBinding::kNot : SqliteBinding::kAnd));
    }
    return {ChainText(operands, conjunction ? " AND " : " OR "), own, {}};
  }
  if (const auto* node = condition.As<bound::Between>()) return BetweenText(*node);
  if (const auto* node = condition.As<bound::InList>()) {
    std::string text = Bracketed(Compared(*node->operand), SqliteBinding::kAdd);
    const char* separator = node->negated ? " NOT IN (" : " IN (";
    for (const bound::ExprPtr& one : node->list) {
      text += separator + Settled(*one).text;
      separator = ", ";
    }
    return {text + ")", SqliteBinding::kCompare, {}};
  }
  if (const auto* node = condition.As<bound::InQuery>()) {
    std::vector<SqliteState> states;
    return {Bracketed(Compared(*node->operand), SqliteBinding::kAdd) +
                (node->negated ? " NOT IN (" : " IN (") +
                QueryText(*node->query, Use::kCompared, states) + ")",
            SqliteBinding::kCompare,
            {}};
  }
  if (const auto* node = condition.As<bound::Like>()) {
    std::vector<std::string> arguments{Value(*node->operand).text, Value(*node->pattern).text};
    if (node->escape) arguments.push_back(Value(*node->escape).text);
    return Negated(SqliteCall("pst_like", arguments), node->negated);
  }
  if (const auto* node = condition.As<bound::IsNull>()) {
    return {Bracketed(Value(*node->operand), SqliteBinding::kAdd) +
                (node->negated ? " IS NOT NULL" : " IS NULL"),
            SqliteBinding::kCompare,
            {}};
  }
  std::vector<SqliteState> states;
  const bound::Query& query = *std::get<bound::Exists>(condition.node).query;
  return SqliteCall("EXISTS ", {QueryText(query, Use::kExistence, states)});
}

// SQLite reads a chain as a tree as deep as the chain is long and has a limit on depth, so that a
// long chain is halved until its parts are short.
std::string SqliteEmitter::ChainText(const std::vector<std::string>& operands,
                                     std::string_view word) {
  constexpr std::size_t kShort = 200;
  if (operands.size() > kShort) {
    const auto middle = operands.begin() + static_cast<std::ptrdiff_t>(operands.size() / 2);
    return "(" + ChainText({operands.begin(), middle}, word) + ")" + std::string(word) + "(" +
           ChainText({middle, operands.end()}, word) + ")";
  }
  std::string text;
  for (const std::string& operand : operands) {
    if (!text.empty()) text += word;
    text += operand;
  }
  return text;
}

SqliteText SqliteEmitter::ComparisonText(const bound::Comparison& node) {
  const bound::Expr& left = *node.left;
  const bound::Expr& right = *node.right;
  // What a flag is asked most stays plain: it is 0, or it is not.
  for (const auto& [flag, value, op] :
       {std::tuple{&left, &right, node.op}, std::tuple{&right, &left, Turned(node.op)}}) {
    const std::string* literal = LiteralOf(*value, Type::kFlag);
    if (literal == nullptr || (op != CompareOp::kEqual && op != CompareOp::kNotEqual)) continue;
    const bool zero = (*literal == "0") == (op == CompareOp::kEqual);
    return {Bracketed(Value(*flag), SqliteBinding::kAdd) + (zero ? " = 0" : " <> 0"),
            SqliteBinding::kCompare,
            {}};
  }
  if (const std::string* date = LiteralOf(right, Type::kDate); date && IsStoredDate(left)) {
    return DateComparisonText(left, node.op, *date);
  }
  if (const std::string* date = LiteralOf(left, Type::kDate); date && IsStoredDate(right)) {
    return DateComparisonText(right, Turned(node.op), *date);
  }
  return Compare(Detached(Compared(left), left), node.op, Detached(Settled(right), right));
}

SqliteText SqliteEmitter::BetweenText(const bound::Between& node) {
  const std::string* low = LiteralOf(*node.low, Type::kDate);
  const std::string* high = LiteralOf(*node.high, Type::kDate);
  if (low != nullptr && high != nullptr && IsStoredDate(*node.operand)) {
    const SqliteText from = DateComparisonText(*node.operand, CompareOp::kGreaterOrEqual, *low);
    const SqliteText to = DateComparisonText(*node.operand, CompareOp::kLessOrEqual, *high);
    return Negated(
        {Bracketed(from, SqliteBinding::kAnd) + " AND " + Bracketed(to, SqliteBinding::kAnd),
         SqliteBinding::kAnd,
         {}},
        node.negated);
  }
  return {Bracketed(Compared(*node.operand), SqliteBinding::kAdd) +
              (node.negated ? " NOT BETWEEN " : " BETWEEN ") +
              Bracketed(Settled(*node.low), SqliteBinding::kAdd) + " AND " +
              Bracketed(Settled(*node.high), SqliteBinding::kAdd),
          SqliteBinding::kCompare,
          {}};
}

bool SqliteEmitter::IsStoredDate(const bound::Expr& value) {
  return value.As<bound::Column>() != nullptr && value.type.type == Type::kDate &&
         Value(value).state.form == SqliteForm::kRaw;
}

// A stored date begins with its day, whatever its form, so that a range of texts that an index
// serves holds every row, and the canonical form decides among them only where a time of day can
// matter. "~" lies behind whatever may follow a day.
SqliteText SqliteEmitter::DateComparisonText(const bound::Expr& column, CompareOp op,
                                             const std::string& date) {
  const std::string stored = Value(column).text;
  const std::string day = date.substr(0, 10);
  const bool midnight = day == date;
  SqliteText exact{"pst_date(" + stored + ")" + std::string(SignOf(op)) + QuotedText(date),
                   SqliteBinding::kCompare,
                   {}};
  const std::string from = stored + " >= " + QuotedText(day);
  const std::string to = stored + " < " + QuotedText(day + "~");
  const auto both = [&](const std::string& range) {
    return SqliteText{range + " AND " + exact.text, SqliteBinding::kAnd, {}};
  };
  switch (op) {
    case CompareOp::kEqual:
      return both(from + " AND " + to);
    case CompareOp::kNotEqual:
      return exact;
    case CompareOp::kLess:
      if (!midnight) return both(to);
      return {stored + " < " + QuotedText(day), SqliteBinding::kCompare, {}};
    case CompareOp::kLessOrEqual:
      return both(to);
    case CompareOp::kGreater:
      return both(from);
    case CompareOp::kGreaterOrEqual:
      if (!midnight) return both(from);
      return {from, SqliteBinding::kCompare, {}};
  }
  return exact;
}

}  // namespace pstolvane1::sql
