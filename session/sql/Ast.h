// One SELECT of the dialect as a tree: what the parser makes and everything behind it reads.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace pstolvane1::sql {

// Where something stands: bytes from the start of the statement's text. Refusal.h turns it into
// "line L, column C".
using Place = std::uint32_t;

struct Expr;
struct Query;
struct TableRef;
using ExprPtr = std::unique_ptr<Expr>;
using QueryPtr = std::unique_ptr<Query>;
using TableRefPtr = std::unique_ptr<TableRef>;

// A name as it was written, without its brackets or quotes. An empty text means that there is none.
struct Name {
  std::string text;
  Place place = 0;

  explicit operator bool() const { return !text.empty(); }
};

struct NumberLiteral {
  enum class Form {
    kWhole,    // digits only: 12
    kDecimal,  // with a point: 1.5, .5, 2.
    kReal,     // with an exponent: 1e3
  };
  Form form;
  std::string digits;  // as written; never a sign
};
struct TextLiteral {
  std::string text;  // without quotes, doubled quotes undone
};
struct FlagLiteral {
  bool value;  // the words true and false
};
struct NullLiteral {};

struct ColumnRef {
  Name table;  // empty for a bare column
  Name column;
};

enum class SignOp { kPlus, kMinus };
struct Sign {
  SignOp op;
  ExprPtr operand;
};

enum class ArithmeticOp { kAdd, kSubtract, kMultiply, kDivide, kModulo };
struct Arithmetic {
  ArithmeticOp op;
  ExprPtr left, right;
};

// Any function, aggregates included: the parser knows no list of them.
struct Call {
  Name function;
  bool distinct = false;  // count(distinct x)
  bool star = false;      // count(*); then there are no arguments
  std::vector<ExprPtr> arguments;
};

// A type as a CAST spells it: varchar, varchar(20), decimal(18, 4).
struct TypeName {
  Name name;
  std::optional<int> size;
  std::optional<int> scale;
};
struct Cast {
  ExprPtr operand;
  TypeName type;
};

struct CaseWhen {
  ExprPtr when;  // a value where the CASE has an operand, else a condition
  ExprPtr then;
};
struct Case {
  ExprPtr operand;  // null for a searched CASE
  std::vector<CaseWhen> whens;
  ExprPtr otherwise;  // null where there is no ELSE
};

struct ScalarSubquery {
  QueryPtr query;
};

enum class CompareOp { kEqual, kNotEqual, kLess, kLessOrEqual, kGreater, kGreaterOrEqual };
struct Comparison {
  CompareOp op;
  ExprPtr left, right;
};

struct Not {
  ExprPtr operand;
};

// One node for a chain of the same word, however long: at least two operands. Parentheses begin a
// chain of their own.
enum class LogicalOp { kAnd, kOr };
struct Logical {
  LogicalOp op;
  std::vector<ExprPtr> operands;
};

struct Between {
  ExprPtr operand, low, high;
  bool negated = false;
};
struct InList {
  ExprPtr operand;
  std::vector<ExprPtr> list;
  bool negated = false;
};
struct InQuery {
  ExprPtr operand;
  QueryPtr query;
  bool negated = false;
};
struct Like {
  ExprPtr operand, pattern;
  ExprPtr escape;  // null where there is none
  bool negated = false;
};
struct IsNull {
  ExprPtr operand;
  bool negated = false;
};
struct Exists {
  QueryPtr query;
};

// Conditions and values are kept apart by the parser, as the dialect does: an operand, a selected
// column, an argument is a value; WHERE, HAVING, ON, a searched WHEN, NOT, AND, OR take conditions.
struct Expr {
  using Node = std::variant<NumberLiteral, TextLiteral, FlagLiteral, NullLiteral, ColumnRef, Sign,
                            Arithmetic, Call, Cast, Case, ScalarSubquery, Comparison, Not, Logical,
                            Between, InList, InQuery, Like, IsNull, Exists>;

  Node node;
  Place place;           // of the operator, or of the first word where there is none
  std::uint32_t id;      // 0 .. Statement::expressions - 1, each once; keys what is found out later
  std::uint32_t height;  // 1 for a leaf, more than that of all below; at most Limits::kHeight

  [[nodiscard]] bool IsCondition() const;
  template <typename T>
  [[nodiscard]] const T* As() const {
    return std::get_if<T>(&node);
  }
};

struct NamedTable {
  Name table;
  Name alias;  // empty where there is none
};
struct DerivedTable {
  QueryPtr query;
  Name alias;  // never empty
};
enum class JoinKind { kInner, kLeft, kRight, kFull, kCross };
// "a join b join c on p on q" has b join c on its right side.
struct Join {
  JoinKind kind;
  TableRefPtr left, right;
  ExprPtr on;  // null for kCross only
};

struct TableRef {
  using Node = std::variant<NamedTable, DerivedTable, Join>;

  Node node;
  Place place;
  std::uint32_t id;  // 0 .. Statement::tables - 1, each once
  std::uint32_t height;

  template <typename T>
  [[nodiscard]] const T* As() const {
    return std::get_if<T>(&node);
  }
};

struct SelectItem {
  ExprPtr value;  // null for a star
  Name star_of;   // of "aaa.*"; empty for a bare star, and for a value
  Name alias;     // empty where there is none
  Place place;

  [[nodiscard]] bool IsStar() const { return value == nullptr; }
};

struct Select {
  Place place;
  std::uint32_t id;  // 0 .. Statement::selects - 1, each once
  bool distinct = false;
  std::optional<std::int64_t> top;
  std::vector<SelectItem> items;
  std::vector<TableRefPtr> from;  // more than one where they are joined with commas; may be empty
  ExprPtr where;                  // null where there is none, as is having
  std::vector<ExprPtr> group_by;
  ExprPtr having;
};

// Selects joined from left to right: ((first UNION second) UNION ALL third) ...
enum class UnionKind { kFirst, kDistinct, kAll };
struct QueryBranch {
  UnionKind joined_by;  // kFirst for the first branch and for no other
  Select select;
};
struct OrderItem {
  ExprPtr value;  // an expression, the alias of a column, or a whole number: a position from 1
  bool descending = false;
};
// A query inside another one has an ORDER BY only where its one branch has a TOP.
struct Query {
  Place place;
  std::uint32_t height;
  std::vector<QueryBranch> branches;  // at least one
  std::vector<OrderItem> order_by;
};

// Owns its text, so that places can be told as long as the tree lives.
struct Statement {
  std::string text;
  Query query;
  std::uint32_t expressions = 0;  // how many ids of each kind were given
  std::uint32_t tables = 0;
  std::uint32_t selects = 0;
};

// What a text may not exceed; each limit has an error of its own.
struct Limits {
  static constexpr std::size_t kTextBytes = 1U << 20;
  static constexpr std::size_t kTokens = 100'000;
  static constexpr std::uint32_t kNesting = 100;  // of parentheses, subqueries, NOT and signs
  static constexpr std::uint32_t kHeight = 256;  // of the whole tree; bounds every walk's recursion
  static constexpr std::size_t kColumns = 1000;  // of a select, a GROUP BY or an ORDER BY
  static constexpr std::size_t kTables = 64;     // of a FROM; a derived table is one
  static constexpr std::size_t kBranches = 500;  // of a UNION
  static constexpr std::size_t kNameBytes = 128;
};

}  // namespace pstolvane1::sql
