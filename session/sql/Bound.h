// A SELECT whose names are found and whose values have types: what the binder makes and an engine's
// emitter writes out. It owes nothing to an engine.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "session/sql/Ast.h"
#include "session/sql/Types.h"

namespace pstolvane1::sql::bound {

struct Expr;
struct Query;
struct Source;
struct From;
using ExprPtr = std::unique_ptr<Expr>;
using QueryPtr = std::unique_ptr<Query>;
using FromPtr = std::unique_ptr<From>;

// Where two values meet, a Convert brings each to the common type before; a literal becomes a
// literal of that type where it can.

struct Literal {
  bool is_null = false;
  // A number in digits, with point or exponent as its type has them; a flag as "0" or "1"; a date
  // as its canonical text, see DateText.h; a text as it is.
  std::string text;
};
struct Column {
  const Source* source;  // of this select or of one around it
  std::size_t index;     // in the source's columns
};
struct Negate {
  ExprPtr operand;
};
struct Arithmetic {
  ArithmeticOp op;
  ExprPtr left, right;  // numbers, not flags
};
struct Concat {
  ExprPtr left, right;
};
enum class Function {
  kAbs,        // (number)
  kRound,      // (number, whole)
  kIsNull,     // (a, b), b being of the type of a
  kCoalesce,   // (a, b, ...), all of one type
  kNullIf,     // (a, b); a is also the value, b is of a type that compares with it
  kYear,       // (date)
  kMonth,      // (date)
  kDay,        // (date)
  kLeft,       // (text, whole literal of 0 and more)
  kRight,      // (text, whole literal of 0 and more)
  kSubstring,  // (text, whole literal of 1 and more, whole literal of 0 and more)
  kLength,     // (text), trailing blanks not counted
  kUpper,      // (text)
  kLower,      // (text)
  kTrimLeft,   // (text)
  kTrimRight,  // (text)
};
struct Call {
  Function function;
  std::vector<ExprPtr> arguments;
};
enum class AggregateKind { kCount, kSum, kAverage, kMinimum, kMaximum };
struct Aggregate {
  AggregateKind kind;
  bool distinct = false;
  ExprPtr argument;  // null for count(*)
};
// The operand as the node's type: a cast of the text, or what the rules of types ask for.
struct Convert {
  ExprPtr operand;
  bool cast = false;  // written as CAST: too many digits for it are an error
};
struct When {
  ExprPtr when;  // a condition; a value of the operand's type where the CASE has one
  ExprPtr then;
};
struct Case {
  ExprPtr operand;  // null for a searched CASE
  std::vector<When> whens;
  ExprPtr otherwise;  // null where there is none
};
struct ScalarSubquery {
  QueryPtr query;  // of one column
};

// The values that they compare are of one type.

struct Comparison {
  CompareOp op;
  ExprPtr left, right;
};
struct Not {
  ExprPtr operand;
};
struct Logical {
  LogicalOp op;
  std::vector<ExprPtr> operands;
};
struct Between {
  ExprPtr operand, low, high;
  bool negated;
};
struct InList {
  ExprPtr operand;
  std::vector<ExprPtr> list;
  bool negated;
};
struct InQuery {
  ExprPtr operand;
  QueryPtr query;  // of one column
  bool negated;
};
struct Like {
  ExprPtr operand, pattern, escape;  // texts; escape may be null
  bool negated;
};
struct IsNull {
  ExprPtr operand;
  bool negated;
};
struct Exists {
  QueryPtr query;
};

struct Expr {
  using Node = std::variant<Literal, Column, Negate, Arithmetic, Concat, Call, Aggregate, Convert,
                            Case, ScalarSubquery, Comparison, Not, Logical, Between, InList,
                            InQuery, Like, IsNull, Exists>;
  Node node;
  ValueType type;
  Place place;

  template <typename T>
  [[nodiscard]] const T* As() const {
    return std::get_if<T>(&node);
  }
};

struct SourceColumn {
  std::string name;
  ValueType type;
};
// A table or a derived table under its correlation name.
struct Source {
  std::string name;
  std::vector<SourceColumn> columns;
  const CatalogTable* table = nullptr;  // null for a derived table
  QueryPtr query;                       // null for a table
};
struct Join {
  JoinKind kind;
  FromPtr left, right;
  ExprPtr on;  // null for kCross only
};
struct From {
  std::variant<std::unique_ptr<Source>, Join> node;
};

struct Item {
  std::string name;  // empty for an expression without an alias
  ExprPtr value;
};
struct Select {
  bool distinct = false;
  std::optional<std::int64_t> top;
  std::vector<Item> items;
  std::vector<FromPtr> from;
  ExprPtr where;
  std::vector<ExprPtr> group_by;
  ExprPtr having;
  bool aggregated = false;  // has groups, HAVING or an aggregate of its own
};
struct Branch {
  UnionKind joined_by;
  Select select;
};
// By a column of the result, or else by a value of the one select.
struct Order {
  std::optional<std::size_t> column;
  ExprPtr value;
  bool descending;
};
// The items of all branches have the types of the columns.
struct Query {
  std::vector<Branch> branches;
  std::vector<SourceColumn> columns;
  std::vector<Order> order_by;
  // Of a whole statement alone: the columns of tables and views that are named anywhere in it, each
  // once. They are the catalog's.
  std::vector<std::pair<const CatalogTable*, const CatalogColumn*>> named;
};

// The operands right below an expression, in order; null where an optional one is not there. The
// insides of subqueries are not among them.
[[nodiscard]] std::vector<const Expr*> Operands(const Expr& expression);
// The query of a subquery, IN (SELECT) or EXISTS, otherwise null.
[[nodiscard]] const Query* QueryOf(const Expr& expression);
// The same value, found by structure; two subqueries are never the same.
[[nodiscard]] bool Same(const Expr& a, const Expr& b);
// Whether a column of the select's own tables is in the value, subqueries' insides left out.
[[nodiscard]] bool TakesColumnOf(const Expr& value, const Select& select);
// Whether it is the same for every row of every group: no column, aggregate or subquery in it.
[[nodiscard]] bool IsConstant(const Expr& value);
// Whether an aggregate of the expression's own query is in it.
[[nodiscard]] bool HasAggregate(const Expr& value);
// Whether it is a table of the select's own FROM.
[[nodiscard]] bool IsOwn(const Source& source, const Select& select);
// Calls visit for every source of the tables joined in from.
void ForEachSource(const From& from, const std::function<void(const Source&)>& visit);

}  // namespace pstolvane1::sql::bound
