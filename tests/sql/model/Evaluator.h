// Reckons a SELECT the slow way, straight from the tree and the dialect's rules: nested loops over
// all rows, every clause in the order in which the language defines it.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "session/sql/Ast.h"
#include "tests/sql/model/Tables.h"

namespace pstolvane1::sql::model {

enum class Truth { kFalse, kUnknown, kTrue };

class Evaluator {
 public:
  // Both must outlive it.
  Evaluator(const Statement& statement, const std::vector<Table>& tables);

  // Errors 6, 11 and 13 of the arithmetic and the conversions, -2147217900 for a subquery that
  // stands for a value and has several rows; std::logic_error for what the model does not know.
  // Names must be right: they are not checked.
  [[nodiscard]] Relation Run();
  // The columns that Run gives, without rows; never fails.
  [[nodiscard]] Relation Columns();

 private:
  // What the names of an expression stand for: the row at hand, or a group of rows, and around it
  // the query that encloses this one.
  struct Frame {
    const std::vector<Column>* columns;
    const Row* row;
    const std::vector<const Row*>* group;  // null where nothing is grouped
    const Frame* outer;
    int depth = outer == nullptr ? 0 : outer->depth + 1;
  };
  struct Keyed {  // a row of the result, and what it is sorted by
    Row row;
    Row keys;
  };

  // --- Queries (EvaluatorQuery.cpp)
  std::vector<Column> ColumnsOf(const Query& query, const Frame* outer);
  std::vector<Column> ColumnsOf(const Select& select, const Frame* outer);  // found once for each
  std::vector<Column> FindColumns(const Select& select, const Frame* outer);
  std::vector<Column> ColumnsOf(const TableRef& table, const Frame* outer);
  std::vector<Column> ColumnsOfFrom(const Select& select, const Frame* outer);
  // Reckoned once where nothing in the query names a column from outside it.
  Relation Rows(const Query& query, const Frame* outer);
  Relation FindRows(const Query& query, const Frame* outer);
  Relation Rows(const Select& select, const std::vector<OrderItem>& order, const Frame* outer);
  Relation Rows(const TableRef& table, const Frame* outer);
  Relation Joined(const Join& join, const Frame* outer);
  Relation RowsOfFrom(const Select& select, const Frame* outer);
  std::vector<Keyed> Grouped(const Select& select, const std::vector<OrderItem>& order,
                             const Relation& from, const Frame* outer);
  Keyed Selected(const Select& select, const std::vector<OrderItem>& order, const Frame& frame);
  std::vector<Kind> KindsOfKeys(const Select& select, const std::vector<OrderItem>& order,
                                const Frame& frame);
  Relation Unioned(const Query& query, const Frame* outer);
  const Table& TableOf(const Name& name) const;

  // --- Expressions (EvaluatorValue.cpp, EvaluatorCondition.cpp)
  Kind KindOf(const Expr& expression, const Frame& frame);  // found once for each expression
  Kind FindKind(const Expr& expression, const Frame& frame);
  Kind KindOfCall(const Call& call, const Frame& frame);
  Kind KindOfPart(const Call& call, const Kind& text);
  Kind KindOfCase(const Case& chosen, const Frame& frame);
  Value ValueOf(const Expr& expression, const Frame& frame);
  Value ValueAs(const Expr& expression, const Kind& kind, const Frame& frame);
  Value ValueOfCall(const Call& call, const Frame& frame);
  Value ValueOfCase(const Expr& expression, const Case& chosen, const Frame& frame);
  Value ValueOfAggregate(const Call& call, const Frame& frame);
  Value ValueOfSubquery(const Query& query, const Frame& frame);
  Truth TruthOf(const Expr& condition, const Frame& frame);
  Truth Compared(CompareOp op, const Value& a, const Kind& kind_a, const Value& b,
                 const Kind& kind_b);
  Truth Compared(CompareOp op, const Expr& a, const Expr& b, const Frame& frame);
  Truth TruthOfIn(const InList& in, const Frame& frame);
  Truth TruthOfIn(const InQuery& in, const Frame& frame);
  Truth TruthOfBetween(const Between& between, const Frame& frame);
  // The frame and the column in it that a name stands for.
  std::pair<const Frame*, std::size_t> Find(const ColumnRef& column, const Frame& frame);

  const Statement& statement_;
  const std::vector<Table>& tables_;
  std::vector<std::optional<Kind>> kinds_;                   // by the expression's id
  std::vector<std::optional<std::vector<Column>>> columns_;  // by the select's id
  std::vector<std::optional<Relation>> rows_;                // by the id of a query's first select
  int outermost_;  // the least depth of a frame that was looked into
};

[[nodiscard]] bool SameName(const std::string& a, const std::string& b);  // any case
[[nodiscard]] bool IsAggregate(const Call& call);
// The aggregates of an expression, not those inside its subqueries.
[[nodiscard]] std::vector<const Call*> AggregatesOf(const Expr& expression);

}  // namespace pstolvane1::sql::model
