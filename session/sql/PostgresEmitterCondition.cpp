#include "session/sql/PostgresEmitter.h"
#include "session/sql/PostgresFold.h"
#include "session/sql/PostgresLike.h"
#include "session/sql/Refusal.h"

namespace pstolvane1::sql {
namespace {

PostgresText Negated(const PostgresText& condition, bool negated) {
  if (!negated) return condition;
  return {"NOT " + Bracketed(condition, PostgresBinding::kIs), PostgresBinding::kNot};
}

std::string Operand(const PostgresText& value) { return Bracketed(value, PostgresBinding::kAdd); }

// Whether a flag is asked for the value that stands in the text.
const std::string* FlagOf(const bound::Expr& value) {
  const auto* literal = value.As<bound::Literal>();
  return literal != nullptr && !literal->is_null && value.type.type == Type::kFlag ? &literal->text
                                                                                   : nullptr;
}

}  // namespace

PostgresText PostgresEmitter::Condition(const bound::Expr& condition) {
  if (const auto* node = condition.As<bound::Comparison>()) {
    const std::string* flag = FlagOf(*node->right);
    const bool same = node->op == CompareOp::kEqual;
    if (flag != nullptr && (same || node->op == CompareOp::kNotEqual)) {
      return Negated(Value(*node->left), same == (*flag == "0"));
    }
    return {Operand(Compared(*node->left)) + std::string(SignOf(node->op)) +
                Operand(Compared(*node->right)),
            PostgresBinding::kCompare};
  }
  if (const auto* node = condition.As<bound::Not>()) {
    return Negated(Condition(*node->operand), true);
  }
  if (const auto* node = condition.As<bound::Logical>()) {
    const bool conjunction = node->op == LogicalOp::kAnd;
    std::string text;
    for (const bound::ExprPtr& operand : node->operands) {
      if (!text.empty()) text += conjunction ? " AND " : " OR ";
      text += Bracketed(Condition(*operand),
                        conjunction ? PostgresBinding::kNot : PostgresBinding::kAnd);
    }
    return {text, conjunction ? PostgresBinding::kAnd : PostgresBinding::kOr};
  }
  if (const auto* node = condition.As<bound::Between>()) {
    return {Operand(Compared(*node->operand)) + (node->negated ? " NOT BETWEEN " : " BETWEEN ") +
                Bracketed(Compared(*node->low), PostgresBinding::kCast) + " AND " +
                Operand(Compared(*node->high)),
            PostgresBinding::kMember};
  }
  if (const auto* node = condition.As<bound::InList>()) {
    std::string text = Operand(Compared(*node->operand));
    const char* separator = node->negated ? " NOT IN (" : " IN (";
    for (const bound::ExprPtr& one : node->list) {
      text += separator + Compared(*one).text;
      separator = ", ";
    }
    return {text + ")", PostgresBinding::kMember};
  }
  if (const auto* node = condition.As<bound::InQuery>()) {
    return {Operand(Compared(*node->operand)) + (node->negated ? " NOT IN (" : " IN (") +
                QueryText(*node->query, Use::kCompared) + ")",
            PostgresBinding::kMember};
  }
  if (const auto* node = condition.As<bound::Like>()) return LikeText(*node);
  if (const auto* node = condition.As<bound::IsNull>()) {
    return {Operand(Value(*node->operand)) + (node->negated ? " IS NOT NULL" : " IS NULL"),
            PostgresBinding::kIs};
  }
  const bound::Query& query = *std::get<bound::Exists>(condition.node).query;
  return PostgresCall("EXISTS ", {QueryText(query, Use::kExistence)});
}

PostgresText PostgresEmitter::LikeText(const bound::Like& node) {
  const auto* pattern = node.pattern->As<bound::Literal>();
  const auto* escape = node.escape ? node.escape->As<bound::Literal>() : nullptr;
  if (pattern == nullptr || (node.escape && escape == nullptr)) {
    Refuse(statement_.text, node.pattern->place,
           "the pattern of a LIKE and its escape are written in quotes");
  }
  const bool one_sign =
      escape == nullptr || escape->is_null ||
      (!escape->text.empty() && FirstCharacter(escape->text) == escape->text.size());
  if (!one_sign) {
    Refuse(statement_.text, node.escape->place,
           "\"" + escape->text + "\" is not one escape character");
  }
  if (pattern->is_null || (escape != nullptr && escape->is_null)) return {"NULL::bool"};
  const PostgresPattern read =
      PostgresPatternOf(pattern->text, escape == nullptr ? "" : escape->text);
  const PostgresText value = Value(*node.operand);
  using Way = PostgresPattern::Way;
  const std::string kept = Bracketed(value, PostgresBinding::kSign);
  if (read.way == Way::kNever) {
    return Negated({kept + " <> " + kept, PostgresBinding::kCompare}, node.negated);
  }
  const bool cut = read.way == Way::kLikeTrimmed;
  const std::string text =
      PostgresFolded(kept, characters_, cut ? TrailingBlanks::kCut : TrailingBlanks::kKept);
  const std::string fitting = PostgresFoldedText(read.pattern, characters_, TrailingBlanks::kKept);
  const std::string sign = read.way == Way::kRegular ? " ~ " : " LIKE ";
  return Negated({text + sign + fitting, PostgresBinding::kMember}, node.negated);
}

}  // namespace pstolvane1::sql
