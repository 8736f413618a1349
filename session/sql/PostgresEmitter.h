// Writes a bound SELECT as text for PostgreSQL, with what every server has: no function of ours.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "session/sql/Bound.h"
#include "session/sql/EngineText.h"

namespace pstolvane1::sql {

// One statement, names quoted, without comments and terminator, that gives the dialect's meaning.
// Its values are always of their types: a flag is boolean, a whole number int4, a big one int8,
// money and decimals are numeric and rounded, singles and reals float8, a date is a date or a
// timestamp. It counts on a session with client_encoding UTF8, DateStyle "ISO, MDY" and
// standard_conforming_strings on. A failure in a row is the server's own (22012, 22003, 22P02,
// 21000, ...) or a cast of a text that begins with kPostgresFailure. Error -2147217900 with the
// place for a form that the server cannot be given.
[[nodiscard]] std::string EmitPostgres(const bound::Query& query, const Statement& statement,
                                       Characters characters);

// "pst:NUMBER:words:pst": what a text that is cast to int4 holds where a row is to fail with that
// number and those words. The server repeats it in a message of its own language.
inline constexpr std::string_view kPostgresFailure = "pst:";
inline constexpr std::string_view kPostgresFailureEnd = ":pst";

// A name as PostgreSQL keeps it: those beyond its 63 bytes are shortened, and stay apart.
[[nodiscard]] std::string PostgresName(std::string_view name);

// How tightly a text binds, loosest first.
enum class PostgresBinding {
  kOr,
  kAnd,
  kNot,
  kIs,
  kCompare,
  kMember,  // BETWEEN, IN, LIKE, and || as other operators
  kAdd,
  kMultiply,
  kSign,  // COLLATE as well
  kCast,  // ::
  kSingle
};

struct PostgresText {
  std::string text;
  PostgresBinding binding = PostgresBinding::kSingle;
};

// The work behind EmitPostgres, one object for one statement.
class PostgresEmitter {
 public:
  PostgresEmitter(const Statement& statement, Characters characters)
      : statement_(statement), characters_(characters) {}

  // What the rows of a query are for.
  enum class Use {
    kStatement,  // a result: what its ORDER BY leaves open is ordered by keys
    kOrdered,    // a derived table whose rows are to keep their order in the statement's
    kRows,       // a derived table, a value
    kExistence,  // EXISTS: the columns do not matter
    kCompared,   // IN: texts come folded
  };
  [[nodiscard]] std::string QueryText(const bound::Query& query, Use use);

 private:
  // PostgresEmitter.cpp
  [[nodiscard]] std::string SelectText(const bound::Select& select, Use use,
                                       std::vector<std::string>& items);
  [[nodiscard]] std::string PlainText(const bound::Query& query, Use use);
  // items are the columns as they are selected; empty for a union.
  [[nodiscard]] std::string OrderText(const bound::Query& query, Use use,
                                      const std::vector<std::string>& items);
  [[nodiscard]] std::string BranchesText(const bound::Query& query, Use use);
  // PostgresEmitterOrder.cpp
  // The order in which rows come that nothing else orders, so that a report is the same every time:
  // that of the groups, or that of the tables' keys in the order of the FROM.
  [[nodiscard]] std::vector<std::string> RowOrder(const bound::Select& select);
  [[nodiscard]] std::vector<std::string> TableOrder(const bound::Source& source);
  [[nodiscard]] std::string KeysBeside(const bound::Select& select);
  [[nodiscard]] std::vector<std::string> DerivedOrder(const bound::Source& source);
  [[nodiscard]] std::vector<std::string> RowOrder(const bound::Query& query, Use use,
                                                  const std::vector<std::string>& items);
  // PostgresEmitterFrom.cpp
  [[nodiscard]] std::string TablesText(const bound::Select& select);
  [[nodiscard]] std::string FromText(const bound::From& from);
  [[nodiscard]] std::string FullJoinText(const bound::Join& join);
  [[nodiscard]] std::string SourceText(const bound::Source& source);

  // PostgresEmitterValue.cpp
  [[nodiscard]] PostgresText Value(const bound::Expr& value);
  // What stands for a text in a comparison, an order or a group.
  [[nodiscard]] PostgresText Compared(const bound::Expr& value);
  [[nodiscard]] PostgresText UngroupedValue(const bound::Expr& value);
  // A value that stands in a GROUP BY around it: of equal texts one stands for the group.
  [[nodiscard]] bool IsGrouped(const bound::Expr& value) const;
  [[nodiscard]] PostgresText ColumnText(const bound::Column& column);
  [[nodiscard]] PostgresText CaseText(const bound::Case& node);
  // PostgresEmitterArithmetic.cpp
  [[nodiscard]] PostgresText ArithmeticText(const bound::Arithmetic& node, const ValueType& type);
  [[nodiscard]] PostgresText SumText(const bound::Arithmetic& node, const ValueType& type);
  [[nodiscard]] PostgresText QuotientText(const bound::Arithmetic& node, const ValueType& type);
  // PostgresEmitterConversion.cpp
  [[nodiscard]] PostgresText ConvertText(const bound::Convert& node, const ValueType& type);
  [[nodiscard]] PostgresText ToText(const bound::Expr& operand, const ValueType& type);
  [[nodiscard]] PostgresText ToWhole(const bound::Expr& operand, const ValueType& type);
  [[nodiscard]] PostgresText ToDate(const bound::Expr& operand, const ValueType& type);
  // PostgresEmitterFunction.cpp
  [[nodiscard]] PostgresText CallText(const bound::Call& call, const ValueType& type);
  [[nodiscard]] PostgresText AggregateText(const bound::Aggregate& node, const ValueType& type);
  // Of exact numbers.
  [[nodiscard]] PostgresText AverageText(const std::string& value, const ValueType& type);

  // PostgresEmitterCondition.cpp
  [[nodiscard]] PostgresText Condition(const bound::Expr& condition);
  [[nodiscard]] PostgresText LikeText(const bound::Like& node);

  // Of a text: what stands for it in a comparison, an order or a group.
  [[nodiscard]] std::string Folded(const std::string& value) const;
  // Of rows that are equal the one whose texts stand last by code point.
  [[nodiscard]] std::string WithoutRepeats(const std::string& text,
                                           const bound::Query& query) const;
  [[nodiscard]] PostgresText ExtremeText(const std::string& value, bool first) const;

  const Statement& statement_;
  const Characters characters_;
  // The selects around whose rows are grouped already where the emitter stands.
  std::vector<const bound::Select*> grouped_;
  // The columns of sources that a full join has put into one derived table: what stands for each.
  std::unordered_map<const bound::Source*, std::vector<std::string>> moved_;
  int full_joins_ = 0;
  // Whether the tables at hand are those of a select whose rows are to be ordered; what orders the
  // rows of each, and the names of what does in the derived table that was written last.
  bool ordered_ = false;
  std::unordered_map<const bound::Source*, std::vector<std::string>> orders_;
  std::vector<std::string> kept_order_;
};

// The pieces that the emitter's files share.
// In parentheses where it binds looser than asked for.
[[nodiscard]] std::string Bracketed(const PostgresText& value, PostgresBinding at_least);
// name(a, b, ...)
[[nodiscard]] PostgresText PostgresCall(std::string_view name,
                                        const std::vector<std::string>& arguments);
// value::type
[[nodiscard]] PostgresText PostgresCast(const PostgresText& value, std::string_view type);
// A float8 as money: the nearest amount of four places, half to even.
[[nodiscard]] PostgresText PostgresMoney(const PostgresText& real);
// The type that values of the type have.
[[nodiscard]] std::string PostgresTypeName(const ValueType& type);
// The value from a subquery, so that the planner does not reckon with it before a row asks for it.
[[nodiscard]] PostgresText Unfolded(const PostgresText& value);

}  // namespace pstolvane1::sql
