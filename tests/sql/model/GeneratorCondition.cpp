#include "tests/sql/model/Generator.h"

namespace pstolvane1::sql::model {

std::string Generator::CompareOperator() {
  static const std::vector<std::string> kOperators = {" = ",  " = ", " <> ", " < ",
                                                      " <= ", " > ", " >= "};
  return OneOf(kOperators);
}

// Days in the forms in which the reports and a host write them, some with a blank behind.
std::string Generator::DateText() {
  static const std::vector<std::string> kDays = {
      "'12/31/2003'", "'01/01/2004'",   "'12/31/2004 '", "'2004-01-01'",
      "'2004-02-29'", "'02/29/2004  '", "'2005-01-01'",  "'2003-12-31 23:59:59'"};
  return OneOf(kDays);
}

std::string Generator::Comparison(int depth, const Scope& scope) {
  switch (Below(6)) {
    case 0:
      return ValueOf(Family::kText, depth, scope).text + CompareOperator() +
             ValueOf(Family::kText, depth, scope).text;
    case 1:
      return Simple(Family::kDate, scope).text + CompareOperator() + DateText();
    case 2:
      return Simple(Family::kDate, scope).text + CompareOperator() +
             ValueOf(Family::kDate, depth, scope).text;
    case 3:
      return Simple(Family::kFlag, scope).text + (Chance(50) ? " = " : " <> ") +
             std::to_string(Below(2));
    default:
      return ExactValueOf(AnyNumber(), depth, scope).text + CompareOperator() +
             ExactValueOf(AnyNumber(), depth, scope).text;
  }
}

std::string Generator::Membership(int depth, const Scope& scope) {
  const Family family = Chance(40) ? Family::kText : Chance(50) ? Family::kWhole : Family::kMoney;
  const std::string word = Chance(35) ? " NOT IN (" : " IN (";
  const std::string operand = ExactValueOf(family, depth, scope).text;
  if (scope.subqueries && Chance(50)) {
    return operand + word + QueryOf({family}, depth - 1, scope.grouped ? nullptr : &scope, false) +
           ")";
  }
  std::string list = Literal(family).text;
  for (int i = Below(4); i > 0; --i) {
    list += ", " + (Chance(10) ? std::string("NULL") : Simple(family, scope).text);
  }
  return operand + word + list + ")";
}

std::string Generator::Existence(int depth, const Scope& scope) {
  const Scope* outer = scope.grouped ? nullptr : &scope;
  const From from = FromClause(depth - 1, outer);
  Scope inner = from.scope;
  inner.outer = outer;
  return std::string(Chance(40) ? "NOT " : "") + "EXISTS (SELECT " + (Chance(50) ? "*" : "1") +
         " FROM " + from.text + " WHERE " + Condition(depth - 1, inner) + ")";
}

std::string Generator::Condition(int depth, const Scope& scope) {
  static const std::vector<std::string> kPatterns = {
      "'a%'",    "'%b%'", "'_b_'",   "'%'",   "'x y'",           "'[a-b]%'",
      "'%[^c]'", "''",    "'10[%]'", "'ABC'", "'%!%' ESCAPE '!'"};
  switch (depth > 0 ? Below(10) : Below(5)) {
    case 0: {
      const Family family = AnyFamily();
      return ValueOf(family, depth, scope).text + (Chance(50) ? " IS NULL" : " IS NOT NULL");
    }
    case 1:
      return ValueOf(Family::kText, depth, scope).text + (Chance(30) ? " NOT" : "") + " LIKE " +
             OneOf(kPatterns);
    case 2: {
      const Family family = Chance(30) ? Family::kText : AnyNumber();
      return ExactValueOf(family, depth, scope).text + (Chance(25) ? " NOT" : "") + " BETWEEN " +
             Simple(family, scope).text + " AND " + ExactValueOf(family, depth, scope).text;
    }
    case 5:
      return Membership(depth, scope);
    case 6:
      return scope.subqueries ? Existence(depth, scope) : Comparison(depth, scope);
    case 7:
      return "NOT (" + Condition(depth - 1, scope) + ")";
    case 8:
      return "(" + Condition(depth - 1, scope) + " OR " + Condition(depth - 1, scope) + ")";
    case 9:
      return "(" + Condition(depth - 1, scope) + " AND " + Condition(depth - 1, scope) + ")";
    default:
      return Comparison(depth, scope);
  }
}

}  // namespace pstolvane1::sql::model
