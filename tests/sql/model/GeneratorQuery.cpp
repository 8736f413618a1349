#include <algorithm>

#include "tests/sql/model/Append.h"
#include "tests/sql/model/Generator.h"

namespace pstolvane1::sql::model {
Generator::Generator(std::uint64_t seed) : random_(seed) {}

// Not by a distribution of the library: those differ from platform to platform.
int Generator::Below(int count) {
  return static_cast<int>(random_() % static_cast<std::uint64_t>(count));
}

bool Generator::Chance(int percent) { return Below(100) < percent; }

Generator::Family Generator::AnyFamily() {
  return static_cast<Family>(Below(static_cast<int>(kFamilies)));
}

Generator::Family Generator::AnyNumber() {
  return static_cast<Family>(1 + Below(static_cast<int>(Family::kReal)));
}

std::string Generator::NewAlias() { return "t" + std::to_string(++aliases_); }

bool Generator::Fails(const Scope& scope) {
  return scope.may_fail && failures_left_ > 0 && Chance(60);
}

// A table of the books or a derived one, under an alias of its own.
Generator::From Generator::Table(int depth) {
  struct Base {
    std::string name;
    double rows;
    std::vector<Leaf> columns;
  };
  static const std::vector<Base> kBases = {{"Sales",
                                            8,
                                            {{"Id", Family::kWhole, 20},
                                             {"Flag", Family::kFlag, 1},
                                             {"Whole", Family::kWhole, 20},
                                             {"Money", Family::kMoney, 100},
                                             {"Single", Family::kSingle, 20},
                                             {"Day", Family::kDate, 0},
                                             {"Letters", Family::kText, 0}}},
                                           {"Bills",
                                            7,
                                            {{"Id", Family::kWhole, 20},
                                             {"Sale_Id", Family::kWhole, 20},
                                             {"Flag", Family::kFlag, 1},
                                             {"Large", Family::kLarge, 3e9},
                                             {"Amount", Family::kMoney, 100},
                                             {"[Real]", Family::kReal, 1e6},
                                             {"Moment", Family::kDate, 0},
                                             {"Note", Family::kText, 0}}},
                                           {"Terms",
                                            5,
                                            {{"Id", Family::kWhole, 20},
                                             {"Flag", Family::kFlag, 1},
                                             {"Number", Family::kDecimal, 124},
                                             {"Whole", Family::kWhole, 20},
                                             {"[Day]", Family::kDate, 0},
                                             {"Letters", Family::kText, 0}}}};
  From from;
  const std::string alias = NewAlias();
  if (depth > 0 && Chance(20)) {
    std::vector<Family> families = {Family::kWhole};
    for (int i = Below(3) + 1; i > 0; --i) families.push_back(AnyFamily());
    from.text = "(" + QueryOf(families, depth - 1, nullptr, true) + ") AS " + alias;
    from.scope.rows = 300;
    for (std::size_t i = 0; i < families.size(); ++i) {
      const double most = families[i] == Family::kFlag ? 1 : 4e9;
      from.scope.columns.push_back({alias + ".c" + std::to_string(i + 1), families[i], most});
    }
    return from;
  }
  const Base& base = OneOf(kBases);
  from.text = base.name + (Chance(50) ? " AS " : " ") + alias;
  from.scope.rows = base.rows;
  for (const Leaf& column : base.columns) {
    from.scope.columns.push_back({alias + "." + column.text, column.family, column.most});
  }
  return from;
}

Generator::From Generator::Joined(From left, From right, const Scope* outer) {
  static const std::vector<std::string> kJoins = {
      " INNER JOIN ", " JOIN ", " LEFT JOIN ", " LEFT OUTER JOIN ", " RIGHT JOIN ", " FULL JOIN "};
  From joined;
  joined.scope = left.scope;
  Append(joined.scope.columns, right.scope.columns);
  joined.scope.rows = left.scope.rows * right.scope.rows;
  if (Chance(8)) {
    joined.text = left.text + " CROSS JOIN " + right.text;
    return joined;
  }
  const std::string on = left.scope.columns[0].text + " = " + right.scope.columns[0].text;
  Scope scope = joined.scope;
  scope.outer = Chance(20) ? outer : nullptr;
  scope.subqueries = false;
  std::string condition = Chance(70) ? on : Condition(0, scope);
  if (Chance(25)) condition += " AND " + Condition(0, scope);
  joined.text = left.text + OneOf(kJoins) + right.text + " ON " + condition;
  return joined;
}

// Up to three tables: with commas, joined from left to right, in parentheses, or with a late ON.
Generator::From Generator::FromClause(int depth, const Scope* outer) {
  From from = Table(depth);
  if (Chance(depth >= 2 ? 45 : 80)) return from;
  From second = Table(depth - 1);
  if (Chance(10)) {
    Append(from.scope.columns, second.scope.columns);
    from.scope.rows *= second.scope.rows;
    from.text += ", " + second.text;
    return from;
  }
  if (Chance(60) || from.scope.rows * second.scope.rows > 100) {
    return Joined(std::move(from), std::move(second), outer);
  }
  From third = Table(depth - 2);
  if (Chance(50)) {
    From inner = Joined(std::move(from), std::move(second), outer);
    if (Chance(50)) inner.text = "(" + inner.text + ")";
    return Joined(std::move(inner), std::move(third), outer);
  }
  From inner = Joined(std::move(second), std::move(third), outer);
  const bool crossed = inner.text.find("CROSS") != std::string::npos;
  if (crossed || Chance(50)) inner.text = "(" + inner.text + ")";
  return Joined(std::move(from), std::move(inner), outer);
}

// Groups by one or two columns or expressions, which then are what the query may name.
Generator::Scope Generator::Group(Scope scope, std::string& clause) {
  Scope grouped;
  grouped.arguments = scope.columns;
  grouped.grouped = true;
  grouped.rows = scope.rows;
  grouped.may_fail = scope.may_fail;
  const int keys = Chance(15) ? 0 : Below(2) + 1;
  for (int i = 0; i < keys; ++i) {
    Leaf key = OneOf(scope.columns);
    if (key.family == Family::kDate && Chance(50)) {
      key = {"YEAR(" + key.text + ")", Family::kWhole, 3000};
    } else if (key.family == Family::kWhole && Chance(30)) {
      key.text = "CASE WHEN " + key.text + " > 2 THEN 1 ELSE " + key.text + " END";
    } else if (key.family == Family::kText) {
      key.text = OneSpelling(key.text);
    }
    clause += (i == 0 ? " GROUP BY " : ", ") + key.text;
    grouped.columns.push_back(key);
  }
  return grouped;
}

std::string Generator::SelectOf(const std::vector<Family>& families, int depth, const Scope* outer,
                                const Shape& shape) {
  const From from = FromClause(depth, outer);
  Scope scope = from.scope;
  scope.outer = outer;
  scope.may_fail = false;
  const std::string where = Chance(60) ? " WHERE " + Condition(depth, scope) : "";
  std::string group;
  std::string having;
  const bool grouped = !shape.plain && Chance(30);
  // What an aggregate adds up must not reach out of its query.
  if (grouped) {
    scope = Group(scope, group);
    if (Chance(30)) having = " HAVING " + Condition(1, scope);
  }
  scope.may_fail = shape.may_fail;
  const bool distinct = !shape.plain && Chance(15);
  std::string text = distinct ? "SELECT DISTINCT " : "SELECT ";
  for (std::size_t i = 0; i < families.size(); ++i) {
    const bool compared = distinct || shape.named || !shape.may_fail;
    const Term term =
        compared ? ExactValueOf(families[i], depth, scope) : ValueOf(families[i], depth, scope);
    const bool one_of_equals = families[i] == Family::kText && (distinct || shape.united);
    text += (i > 0 ? ", " : "") + (one_of_equals ? OneSpelling(term.text) : term.text);
    if (shape.named) text += " AS c" + std::to_string(i + 1);
  }
  return text + " FROM " + from.text + where + group + having;
}

std::string Generator::QueryOf(const std::vector<Family>& families, int depth, const Scope* outer,
                               bool named) {
  const int others = Chance(15) ? Below(2) + 1 : 0;
  const Shape shape{named, false, false, others > 0};
  std::string text = SelectOf(families, depth, outer, shape);
  for (int i = others; i > 0; --i) {
    text += (Chance(50) ? " UNION " : " UNION ALL ") + SelectOf(families, depth - 1, outer, shape);
  }
  return text;
}

std::string Generator::Select() {
  constexpr int kDepth = 3;
  aliases_ = 0;
  failures_left_ = Chance(30) ? 1 : 0;
  std::vector<Family> families;
  for (int i = Below(4) + 1; i > 0; --i) families.push_back(AnyFamily());
  std::string everything;
  for (std::size_t i = 0; i < families.size(); ++i) {
    everything += (i == 0 ? " ORDER BY " : ", ") + std::to_string(i + 1);
    if (Chance(30)) everything += " DESC";
  }
  if (Chance(15)) return QueryOf(families, kDepth, nullptr, Chance(50)) + everything;
  if (Chance(10)) {
    failures_left_ = 0;
    const std::string text = SelectOf(families, kDepth, nullptr, {true, false, true, false});
    return "SELECT TOP " + std::to_string(Below(6)) + text.substr(6) + everything;
  }
  const std::string text = SelectOf(families, kDepth, nullptr, {Chance(50), true, false, false});
  return text + (Chance(50) ? everything : "");
}

}  // namespace pstolvane1::sql::model
