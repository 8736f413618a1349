#include <algorithm>

#include "tests/sql/model/Generator.h"

namespace pstolvane1::sql::model {
namespace {

constexpr double kMostWhole = 2e9;
constexpr double kMostMoney = 1e8;

}  // namespace

Generator::Term Generator::Literal(Family family) {
  static const std::vector<std::string> kDecimals = {"1.5",  "0.25", ".1",  "12.345",
                                                     "-0.5", "2.0",  "0.3", "99.99"};
  static const std::vector<std::string> kReals = {"1e0", "2.5e1", "-5e-1", "0e0"};
  static const std::vector<std::string> kTexts = {"'abc'", "'ABC '", "''",  "'x y'",  "'b'",
                                                  "'10%'", "'a_'",   "' '", "'it''s'"};
  static const std::vector<std::string> kDates = {"CAST('12/31/2003' AS DATETIME)",
                                                  "CAST('2004-02-29' AS DATETIME)"};
  const int whole = Below(30) - 9;
  const std::string digits = std::to_string(whole);
  switch (family) {
    case Family::kFlag:
      return {"CAST(" + std::to_string(Below(2)) + " AS BIT)", 1};
    case Family::kWhole:
      return {digits, 20};
    case Family::kLarge:
      return {"CAST(" + digits + " AS BIGINT)", 20};
    case Family::kMoney:
      return {"CAST(" + (Chance(50) ? digits : OneOf(kDecimals)) + " AS MONEY)", 100};
    case Family::kDecimal:
      return {OneOf(kDecimals), 100};
    case Family::kSingle:
      return {"CAST(" + digits + " AS REAL)", 20};
    case Family::kReal:
      return {OneOf(kReals), 25};
    case Family::kText:
      return {OneOf(kTexts)};
    case Family::kDate:
      return {OneOf(kDates)};
  }
  return {};
}

// A column, or a literal where there is none of the family.
Generator::Term Generator::Simple(Family family, const Scope& scope) {
  std::vector<const Leaf*> fitting;
  for (const Scope* at = &scope; at != nullptr; at = Chance(30) ? at->outer : nullptr) {
    for (const Leaf& leaf : at->columns) {
      if (leaf.family == family) fitting.push_back(&leaf);
    }
  }
  if (scope.grouped && Chance(fitting.empty() ? 80 : 40)) return Aggregate(family, scope);
  if (fitting.empty() || Chance(20)) return Literal(family);
  const Leaf& leaf = *OneOf(fitting);
  return {leaf.text, leaf.most};
}

std::string Generator::OneSpelling(const std::string& text) { return "UPPER(RTRIM(" + text + "))"; }

Generator::Term Generator::ExactValueOf(Family family, int depth, const Scope& scope) {
  const Term term = ValueOf(family, depth, scope);
  return term.exact ? term : Literal(family);
}

Generator::Term Generator::ValueOf(Family family, int depth, const Scope& scope) {
  if (depth <= 0 || Chance(25)) return Simple(family, scope);
  const int way = Below(10);
  if (way == 0) return Chosen(family, depth, scope);
  if (way == 1 && scope.subqueries) return Subquery(family, depth, scope);
  if (way == 2) {
    Scope safe = scope;
    safe.may_fail = false;
    const Term first = ValueOf(family, depth - 1, safe);
    const Term second = ValueOf(family, depth - 1, safe);
    // ISNULL gives the first one's type; a decimal of it may have no room for the second.
    return {(Chance(70) && family != Family::kDecimal ? "ISNULL(" : "COALESCE(") + first.text +
                ", " + second.text + ")",
            std::max(first.most, second.most), first.exact && second.exact};
  }
  return Composed(family, depth, scope);
}

Generator::Term Generator::Composed(Family family, int depth, const Scope& scope) {
  switch (family) {
    case Family::kFlag:
      return FlagOf(depth, scope);
    case Family::kWhole:
      return WholeOf(depth, scope);
    case Family::kMoney:
      return MoneyOf(depth, scope);
    case Family::kDecimal:
      return DecimalOf(depth, scope);
    case Family::kSingle:
    case Family::kReal:
      return FloatOf(family, depth, scope);
    case Family::kText:
      return TextOf(depth, scope);
    case Family::kLarge: {
      const Term large = Simple(family, scope);
      const Term whole = ValueOf(Family::kWhole, depth - 1, scope);
      if (large.most + whole.most > 1e17) return large;
      return {"(" + large.text + (Chance(50) ? " + " : " - ") + whole.text + ")",
              large.most + whole.most};
    }
    case Family::kDate:
      return Simple(family, scope);
  }
  return {};
}

Generator::Term Generator::Aggregate(Family family, const Scope& scope) {
  Scope inside;
  inside.columns = scope.arguments;
  inside.subqueries = false;
  const bool sums = family != Family::kText && family != Family::kDate && family != Family::kFlag;
  if (family == Family::kWhole && Chance(30)) {
    if (Chance(40)) return {"COUNT(*)", scope.rows};
    const Term counted = ExactValueOf(AnyFamily(), 1, inside);
    return {(Chance(30) ? "COUNT(DISTINCT " : "COUNT(") + counted.text + ")", scope.rows};
  }
  const Term argument = ExactValueOf(family, 1, inside);
  if (family == Family::kFlag) {
    return {"CAST(MAX(CASE WHEN " + Condition(0, inside) + " THEN 1 ELSE 0 END) AS BIT)", 1};
  }
  // SUM and AVG of singles are reals.
  const bool float_sum = family == Family::kSingle || family == Family::kReal;
  const double most = argument.most * scope.rows;
  if (sums && family != Family::kSingle && most < kMostMoney && Chance(60)) {
    if (Chance(30)) return {"AVG(" + argument.text + ")", argument.most, !float_sum};
    return {(Chance(15) && !float_sum ? "SUM(DISTINCT " : "SUM(") + argument.text + ")", most};
  }
  const std::string one = family == Family::kText ? OneSpelling(argument.text) : argument.text;
  return {(Chance(50) ? "MIN(" : "MAX(") + one + ")", argument.most};
}

Generator::Term Generator::Chosen(Family family, int depth, const Scope& scope) {
  Scope safe = scope;
  safe.may_fail = false;
  const Term yes = ValueOf(family, depth - 1, scope);
  const Term no = ValueOf(family, depth - 1, scope);
  const double most = std::max(yes.most, no.most);
  const bool exact = yes.exact && no.exact;
  if (Chance(25)) {
    const Family of_operand = Chance(50) ? Family::kWhole : Family::kText;
    const std::string operand = ExactValueOf(of_operand, depth - 1, safe).text;
    return {"CASE " + operand + " WHEN " + Simple(of_operand, safe).text + " THEN " + yes.text +
                " ELSE " + no.text + " END",
            most, exact};
  }
  std::string text = "CASE WHEN " + Condition(depth - 1, safe) + " THEN " + yes.text;
  if (Chance(75)) text += " ELSE " + no.text;
  return {text + " END", most, exact};
}

// One row by an aggregate, by TOP with a full order, or by luck.
Generator::Term Generator::Subquery(Family family, int depth, const Scope& scope) {
  From from = FromClause(depth - 2, scope.grouped ? nullptr : &scope);
  Scope inner = from.scope;
  inner.outer = scope.grouped ? nullptr : &scope;
  const std::string where = Chance(70) ? " WHERE " + Condition(depth - 2, inner) : "";
  if (family == Family::kFlag || family == Family::kText || Chance(30)) {
    inner.outer = nullptr;
    Term term = ExactValueOf(family, 0, inner);
    if (family == Family::kText) term.text = OneSpelling(term.text);
    return {"(SELECT TOP 1 " + term.text + " FROM " + from.text + where + " ORDER BY 1" +
                (Chance(50) ? " DESC)" : ")"),
            term.most};
  }
  Scope grouped;
  grouped.arguments = inner.columns;
  grouped.grouped = true;
  grouped.subqueries = false;
  grouped.rows = inner.rows;
  const Term term = Aggregate(family, grouped);
  return {"(SELECT " + term.text + " FROM " + from.text + where + ")", term.most, term.exact};
}

Generator::Term Generator::Failing(const Scope& scope) {
  --failures_left_;
  const std::string column = Simple(Family::kWhole, scope).text;
  const std::string often_zero = "(" + column + " - " + std::to_string(Below(8) + 1) + ")";
  switch (Below(5)) {
    case 0:
      return {"(" + Literal(Family::kWhole).text + " / " + often_zero + ")", 20};
    case 1:
      return {"(" + Literal(Family::kWhole).text + " % " + often_zero + ")", 20};
    case 2:
      return {"(2000000000 + 50000000 * " + column + ")", kMostWhole};
    case 3:
      return {"CAST(SUBSTRING(" + Simple(Family::kText, scope).text + ", 1, 9) AS INT)", 20};
    default:
      return scope.subqueries && !scope.grouped
                 ? Term{"(SELECT Whole FROM Terms WHERE Whole > " + column + ")", 20}
                 : Term{column, kMostWhole};
  }
}

Generator::Term Generator::WholeOf(int depth, const Scope& scope) {
  if (Fails(scope)) return Failing(scope);
  if (Chance(40)) return WholeFromOthers(depth, scope);
  const Term a = ValueOf(Family::kWhole, depth - 1, scope);
  const Term b = ValueOf(Family::kWhole, depth - 1, scope);
  const std::string divisor = std::to_string(Chance(50) ? Below(7) + 1 : -Below(7) - 1);
  switch (Below(6)) {
    case 0:
      if (a.most + b.most > kMostWhole) return a;
      return {"(" + a.text + " + " + b.text + ")", a.most + b.most};
    case 1:
      if (a.most + b.most > kMostWhole) return b;
      return {"(" + a.text + " - " + b.text + ")", a.most + b.most};
    case 2:
      if (a.most * b.most > kMostWhole) return a;
      return {a.text + " * " + b.text, a.most * b.most};
    case 3:
      return {"(" + a.text + " / " + divisor + ")", a.most};
    case 4:
      return {"(" + a.text + " % " + divisor + ")", 7};
    default:
      return {"- " + Simple(Family::kWhole, scope).text, kMostWhole};
  }
}

Generator::Term Generator::WholeFromOthers(int depth, const Scope& scope) {
  switch (Below(8)) {
    case 0: {
      const Term money = ExactValueOf(Family::kMoney, depth - 1, scope);
      return {"CAST(" + money.text + " AS INT)", money.most + 1};
    }
    case 1: {
      const Term decimal = Simple(Family::kDecimal, scope);
      return {"CAST(" + decimal.text + " AS INT)", decimal.most + 1};
    }
    case 2: {
      static const std::vector<std::string> kParts = {"YEAR(", "MONTH(", "DAY("};
      return {OneOf(kParts) + ValueOf(Family::kDate, depth - 1, scope).text + ")", 3000};
    }
    case 3:
      return {"LEN(" + ValueOf(Family::kText, depth - 1, scope).text + ")", 200};
    case 4:
      return {"(" + Simple(Family::kFlag, scope).text + " + " + Literal(Family::kWhole).text + ")",
              21};
    case 5: {
      const Term whole = ValueOf(Family::kWhole, depth - 1, scope);
      return {"ABS(" + whole.text + ")", whole.most};
    }
    case 6: {
      const Term whole = ValueOf(Family::kWhole, depth - 1, scope);
      return {"NULLIF(" + whole.text + ", " + Literal(Family::kWhole).text + ")", whole.most};
    }
    default:
      return {"CAST(CAST(" + Simple(Family::kWhole, scope).text + " AS VARCHAR) AS INT)",
              kMostWhole};
  }
}

Generator::Term Generator::MoneyOf(int depth, const Scope& scope) {
  const Term a = ValueOf(Family::kMoney, depth - 1, scope);
  const Term b = ValueOf(Family::kMoney, depth - 1, scope);
  const Term whole = ValueOf(Family::kWhole, depth - 1, scope);
  const std::string divisor = std::to_string(Chance(50) ? Below(7) + 1 : -Below(7) - 1);
  switch (Below(8)) {
    case 0:
      return {"(" + a.text + " + " + (a.most + b.most > kMostMoney ? "0" : b.text) + ")",
              a.most + b.most};
    case 1:
      return {"(" + a.text + " - " + (a.most + b.most > kMostMoney ? "0" : b.text) + ")",
              a.most + b.most};
    case 2:
      if (a.most * b.most > kMostMoney) return a;
      return {a.text + " * " + b.text, a.most * b.most};
    case 3:
      if (a.most * whole.most > kMostMoney) return a;
      return {whole.text + " * " + a.text, a.most * whole.most};
    case 4:
      return {"(" + a.text + " / " + divisor + ")", a.most};
    case 5:
      return {"CAST(" + ExactValueOf(AnyNumber(), 0, scope).text + " AS MONEY)", 4e9};
    case 6:
      return {"ABS(" + a.text + ")", a.most};
    default:
      return {"ROUND(" + a.text + ", " + std::to_string(Below(5)) + ")", a.most + 1};
  }
}

// Decimals grow in digits with every step, so one side is always simple.
Generator::Term Generator::DecimalOf(int depth, const Scope& scope) {
  const Term a = Simple(Family::kDecimal, scope);
  const Term whole = Simple(Family::kWhole, scope);
  const Term money = Simple(Family::kMoney, scope);
  const std::string literal = Literal(Family::kDecimal).text;
  switch (Below(8)) {
    case 0:
      return {"(" + a.text + " + " + whole.text + ")", a.most + whole.most};
    case 1:
      return {"(" + a.text + " - " + literal + ")", a.most + 100};
    case 2:
      return {"(" + money.text + " * " + literal + ")", money.most * 100};
    case 3:
      return {"(" + whole.text + " * " + literal + ")", whole.most * 100};
    case 4:
      return {"(" + a.text + " / " + literal + ")", a.most * 10};
    case 5:
      return {"CAST(" + ExactValueOf(AnyNumber(), 0, scope).text + " AS DECIMAL(18, 3))", 4e9};
    case 6:
      return {"ABS(" + ValueOf(Family::kDecimal, depth - 1, scope).text + ")", 1e6};
    default:
      return {"(" + a.text + " + " + literal + ")", a.most + 100};
  }
}

Generator::Term Generator::FloatOf(Family family, int depth, const Scope& scope) {
  const Term a = ValueOf(family, depth - 1, scope);
  const Term whole = ValueOf(Family::kWhole, depth - 1, scope);
  const std::string divisor = std::to_string(Below(7) + 1);
  switch (Below(5)) {
    case 0:
      return {"(" + a.text + " + " + whole.text + ")", a.most + whole.most, a.exact};
    case 1:
      return {"(" + a.text + " - " + whole.text + ")", a.most + whole.most, a.exact};
    case 2:
      if (a.most * whole.most > 1e12) return a;
      return {a.text + " * " + whole.text, a.most * whole.most, a.exact};
    case 3:
      return {"(" + a.text + " / " + divisor + ")", a.most, false};
    default:
      return {"ABS(" + a.text + ")", a.most, a.exact};
  }
}

Generator::Term Generator::TextOf(int depth, const Scope& scope) {
  const std::string text = ValueOf(Family::kText, depth - 1, scope).text;
  const std::string count = std::to_string(Below(4));
  switch (Below(8)) {
    case 0:
      return {"(" + text + " + " + Simple(Family::kText, scope).text + ")"};
    case 1:
      return {"CAST(" + ValueOf(Family::kWhole, depth - 1, scope).text + " AS VARCHAR)"};
    case 2:
      return {"LEFT(" + text + ", " + count + ")"};
    case 3:
      return {"RIGHT(" + text + ", " + count + ")"};
    case 4:
      return {"SUBSTRING(" + text + ", " + std::to_string(Below(3) + 1) + ", " + count + ")"};
    case 5:
      return {(Chance(50) ? "UPPER(" : "LOWER(") + text + ")"};
    case 6:
      return {(Chance(50) ? "LTRIM(" : "RTRIM(") + text + ")"};
    default:
      return {"CAST(" + Simple(Family::kMoney, scope).text + " AS VARCHAR)"};
  }
}

Generator::Term Generator::FlagOf(int depth, const Scope& scope) {
  if (Chance(50)) return {"CAST(" + ValueOf(Family::kWhole, depth - 1, scope).text + " AS BIT)", 1};
  return Simple(Family::kFlag, scope);
}

}  // namespace pstolvane1::sql::model
