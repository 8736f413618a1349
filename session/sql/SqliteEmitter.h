// Writes a bound SELECT as text for SQLite, with the functions of SqliteFunctions.h.
#pragma once

#include <limits>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "session/sql/Bound.h"
#include "session/sql/EngineText.h"

namespace pstolvane1::sql {

// One statement, names quoted, without comments and terminator, that gives the dialect's meaning.
// Its result columns come raw and are brought to their types when they are stored: money is rounded
// to four decimals, half to even; a single is rounded to 32 bits; a whole number beyond 32 bits,
// and one that comes as real, is error 6; any integer but 0 in a flag is True; a date is ISO text,
// with or without a time.
[[nodiscard]] std::string EmitSqlite(const bound::Query& query);

// What SQLite is to hold while a value is on its way. SQLite knows integers and reals where the
// dialect knows flags, money and decimals, so a value may lag behind its type; it is settled only
// where that can be seen: where it is compared, grouped, ordered, or cut.
enum class SqliteForm {
  kSettled,
  kNoise,  // money or decimal: right but for the last bits of a double
  kRaw,    // to be rounded (money, decimal), checked (whole numbers, floats), brought to 0 or 1
           // (flags), or brought to the canonical text (dates)
};

struct SqliteState {
  SqliteForm form = SqliteForm::kSettled;
  bool real = false;         // never an integer of SQLite's
  double low = 0, high = 0;  // of whole numbers: between what they lie
  // Of floats: none is larger, unless the value is raw and may have left its range.
  double reach = std::numeric_limits<double>::max();
};

// How tightly a text binds, loosest first.
enum class SqliteBinding { kOr, kAnd, kNot, kCompare, kAdd, kMultiply, kConcat, kSign, kSingle };

struct SqliteText {
  std::string text;
  SqliteBinding binding = SqliteBinding::kSingle;
  SqliteState state;
};

// The work behind EmitSqlite, one object for one statement.
class SqliteEmitter {
 public:
  // What the rows of a query are for.
  enum class Use {
    kStatement,  // its result columns: a decimal is settled, the engine stores the others rightly
    kRows,       // a derived table
    kExistence,  // EXISTS: the columns do not matter
    kCompared,   // IN: values are settled
    kOnly,       // a value: the one column of the one row
    kOnlyRows,   // the rows of which there may be one only
  };
  // The states tell of the query's columns.
  [[nodiscard]] std::string QueryText(const bound::Query& query, Use use,
                                      std::vector<SqliteState>& states);

 private:
  // SqliteEmitter.cpp
  [[nodiscard]] std::string SelectText(const bound::Select& select, Use use, bool settle,
                                       std::vector<SqliteText>& items);
  [[nodiscard]] std::string ItemText(const bound::Item& item, Use use, bool settled,
                                     const SqliteText& value);
  // items are the columns as the one select has them; empty for a union, whose columns are settled.
  [[nodiscard]] std::string OrderText(const bound::Query& query,
                                      const std::vector<SqliteText>& items);
  // A query that stands for a value: a second row is an error.
  [[nodiscard]] std::string OnlyText(const bound::Query& query, std::vector<SqliteState>& states);
  // SqliteEmitterFrom.cpp
  [[nodiscard]] std::string TablesText(const bound::Select& select);
  [[nodiscard]] std::string FromText(const bound::From& from);
  // Tables side by side, and the conditions that all belong behind the last of them.
  struct JoinParts {
    std::string tables;
    std::vector<SqliteText> on;
  };
  [[nodiscard]] JoinParts PartsOf(const bound::Join& join);
  [[nodiscard]] SqliteText OnBesideFullJoin(const bound::Expr& on, const bound::From& joined);
  [[nodiscard]] std::string SourceText(const bound::Source& source);

  // SqliteEmitterValue.cpp
  [[nodiscard]] SqliteText Value(const bound::Expr& value);
  [[nodiscard]] SqliteText Settled(const bound::Expr& value);
  // Settled, and a text under the collation of texts.
  [[nodiscard]] SqliteText Compared(const bound::Expr& value);
  // Money and decimals rounded; the noise of sums may stay.
  [[nodiscard]] SqliteText Rounded(const bound::Expr& value);
  [[nodiscard]] SqliteText ColumnText(const bound::Column& column, const ValueType& type);
  [[nodiscard]] SqliteText CaseText(const bound::Case& node);
  [[nodiscard]] SqliteText SubqueryText(const bound::Query& query);
  // SqliteEmitterArithmetic.cpp
  [[nodiscard]] SqliteText ArithmeticText(const bound::Arithmetic& node, const ValueType& type);
  [[nodiscard]] SqliteText SumText(const bound::Arithmetic& node, const ValueType& type);
  [[nodiscard]] SqliteText QuotientText(const bound::Arithmetic& node, const ValueType& type);
  [[nodiscard]] SqliteText RemainderText(const bound::Arithmetic& node);
  // SqliteEmitterConversion.cpp
  [[nodiscard]] SqliteText ConvertText(const bound::Convert& node, const ValueType& type);
  [[nodiscard]] SqliteText ToText(const bound::Expr& operand, const ValueType& type);
  [[nodiscard]] SqliteText ToWhole(const bound::Expr& operand, const ValueType& type);
  [[nodiscard]] SqliteText ToDecimal(const bound::Convert& node, const ValueType& type);
  // SqliteEmitterFunction.cpp
  [[nodiscard]] SqliteText CallText(const bound::Call& call, const ValueType& type);
  [[nodiscard]] SqliteText AggregateText(const bound::Aggregate& node, const ValueType& type);
  [[nodiscard]] SqliteText AverageText(const bound::Aggregate& node, const ValueType& type);

  // SqliteEmitterCondition.cpp
  [[nodiscard]] SqliteText Condition(const bound::Expr& condition);
  [[nodiscard]] SqliteText ComparisonText(const bound::Comparison& node);
  [[nodiscard]] SqliteText BetweenText(const bound::Between& node);
  [[nodiscard]] SqliteText DateComparisonText(const bound::Expr& column, CompareOp op,
                                              const std::string& date);
  [[nodiscard]] std::string ChainText(const std::vector<std::string>& operands,
                                      std::string_view word);
  // Whether it is a stored date with a time of day, which may stand in more than one form.
  [[nodiscard]] bool IsStoredDate(const bound::Expr& value);

  std::unordered_map<const bound::Source*, std::vector<SqliteState>> states_;
  bool full_join_ = false;  // the FROM at hand has a full join
};

// The pieces that the emitter's files share.
// In parentheses where it binds looser than asked for.
[[nodiscard]] std::string Bracketed(const SqliteText& value, SqliteBinding at_least);
// name(a, b, ...)
[[nodiscard]] SqliteText SqliteCall(std::string_view name,
                                    const std::vector<std::string>& arguments,
                                    const SqliteState& state = {});
// What two values of one type have in common.
[[nodiscard]] SqliteState Merged(const SqliteState& a, const SqliteState& b);
[[nodiscard]] SqliteText SettledText(SqliteText value, const ValueType& type);
[[nodiscard]] SqliteState WholeState(const ValueType& type);
[[nodiscard]] bool IsFloat(Type type);
// What the size of a settled number never goes beyond.
[[nodiscard]] double ReachOf(const SqliteText& value, const ValueType& type);
[[nodiscard]] bool IsWhole(Type type);
[[nodiscard]] int BitsOf(Type type);

}  // namespace pstolvane1::sql
