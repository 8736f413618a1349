// Random SELECTs of the dialect over the small tables, with types that fit by construction.
#pragma once

#include <array>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "tests/sql/model/Tables.h"

namespace pstolvane1::sql::model {

// The same seed gives the same texts. Names, types and grouping are always right; a query fails, if
// at all, at one place: by a division by zero, an overflow, a text that is no number, or a subquery
// with several rows. Where rows could come in any order and the order matters (TOP), it is told in
// full. Singles and reals whose last bits could depend on the order of reckoning are only selected,
// never compared, grouped or converted.
class Generator {
 public:
  explicit Generator(std::uint64_t seed);
  [[nodiscard]] std::string Select();

 private:
  enum class Family { kFlag, kWhole, kLarge, kMoney, kDecimal, kSingle, kReal, kText, kDate };
  static constexpr std::size_t kFamilies = 9;
  struct Term {
    std::string text;
    double most = 0;    // no absolute value is above it
    bool exact = true;  // can be compared, grouped and converted
  };
  struct Leaf {
    std::string text;
    Family family;
    double most;
  };
  struct Scope {
    std::vector<Leaf> columns;     // that an expression may name
    std::vector<Leaf> arguments;   // in a grouped query: those that stand inside aggregates
    const Scope* outer = nullptr;  // where a subquery may reach out
    double rows = 1;               // at most so many in one group
    bool grouped = false;
    bool subqueries = true;
    bool may_fail = false;
  };

  // --- Choices
  int Below(int count);
  bool Chance(int percent);
  template <typename T>
  const T& OneOf(const std::vector<T>& choices) {
    return choices[static_cast<std::size_t>(Below(static_cast<int>(choices.size())))];
  }
  Family AnyFamily();
  Family AnyNumber();
  std::string NewAlias();
  bool Fails(const Scope& scope);

  // --- Values (GeneratorValue.cpp)
  Term ValueOf(Family family, int depth, const Scope& scope);
  Term ExactValueOf(Family family, int depth, const Scope& scope);
  Term Simple(Family family, const Scope& scope);
  // The one spelling of equal texts: which of them stands for a group of them is left open.
  static std::string OneSpelling(const std::string& text);
  Term Literal(Family family);
  Term Composed(Family family, int depth, const Scope& scope);
  Term Aggregate(Family family, const Scope& scope);
  Term Chosen(Family family, int depth, const Scope& scope);
  Term Subquery(Family family, int depth, const Scope& scope);
  Term WholeOf(int depth, const Scope& scope);
  Term WholeFromOthers(int depth, const Scope& scope);
  Term Failing(const Scope& scope);
  Term MoneyOf(int depth, const Scope& scope);
  Term DecimalOf(int depth, const Scope& scope);
  Term FloatOf(Family family, int depth, const Scope& scope);
  Term TextOf(int depth, const Scope& scope);
  Term FlagOf(int depth, const Scope& scope);

  // --- Conditions (GeneratorCondition.cpp)
  std::string Condition(int depth, const Scope& scope);
  std::string CompareOperator();
  std::string Comparison(int depth, const Scope& scope);
  std::string Membership(int depth, const Scope& scope);
  std::string DateText();
  std::string Existence(int depth, const Scope& scope);

  // --- Queries (GeneratorQuery.cpp)
  struct From {
    std::string text;
    Scope scope;
  };
  struct Shape {
    bool named = false;     // columns are called c1, c2 ...
    bool may_fail = false;  // at one place of its columns
    bool plain = false;     // neither DISTINCT nor a grouping
    bool united = false;    // equal rows may be dropped behind it
  };
  From Table(int depth);
  From Joined(From left, From right, const Scope* outer);
  From FromClause(int depth, const Scope* outer);
  std::string SelectOf(const std::vector<Family>& families, int depth, const Scope* outer,
                       const Shape& shape);
  Scope Group(Scope scope, std::string& clause);
  std::string QueryOf(const std::vector<Family>& families, int depth, const Scope* outer,
                      bool named);

  std::mt19937_64 random_;
  int aliases_ = 0;
  int failures_left_ = 0;
};

}  // namespace pstolvane1::sql::model
