// Finds the names of a SELECT in the catalog and gives every value its type.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "session/sql/Ast.h"
#include "session/sql/Bound.h"
#include "session/sql/Catalog.h"

namespace pstolvane1::sql {

// Error -2147217900 "line L, column C: ..." for unknown tables, columns and functions, ambiguous
// and repeated names, types that cannot be combined, aggregates where none may be, columns that are
// neither grouped nor aggregated, and wrong numbers of columns. The result refers to the catalog's
// tables and must not outlive them. Pure; may be called from any thread.
[[nodiscard]] bound::Query Bind(const Statement& statement, const Catalog& catalog);

// The work behind Bind, one object for one statement.
class Binder {
 public:
  Binder(const Statement& statement, const Catalog& catalog)
      : statement_(statement), catalog_(catalog) {}

  // The sources that a name may mean, and those of the selects around.
  struct Scope {
    const Scope* outer = nullptr;
    std::vector<const bound::Source*> sources;
  };
  enum class Role { kQuery, kDerivedTable, kValue };
  [[nodiscard]] bound::Query BindQuery(const Query& query, const Scope* outer, Role role);
  // The columns of tables that were named so far.
  [[nodiscard]] auto TakeNamed() { return std::move(named_); }

 private:
  enum class Clause { kSelect, kOn, kWhere, kGroupBy, kHaving, kOrderBy };
  // Where an expression stands.
  struct Context {
    const Scope* scope;
    bound::Select* select;
    Clause clause;
    bool in_aggregate = false;
  };

  // BinderQuery.cpp
  [[nodiscard]] static bool IsSource(std::string_view name, const Scope& scope);
  void BindOrder(const Query& query, const Scope& scope, bound::Query& bound);
  [[nodiscard]] bound::Order BindOrderItem(const Expr& value, const Scope& scope,
                                           bound::Query& bound);
  [[nodiscard]] std::optional<std::size_t> ColumnNamed(const Name& name, const bound::Query& bound);
  void UniteColumns(const Query& query, bound::Query& bound);
  void CheckDerivedColumns(const Query& query, const bound::Query& bound, const Name& alias);

  // BinderSelect.cpp
  [[nodiscard]] bound::Select BindSelect(const Select& select, Scope& scope);
  void BindItem(const SelectItem& item, const Scope& scope, bound::Select& bound);
  void ExpandStar(const SelectItem& item, const Scope& scope, bound::Select& bound);
  void CheckGroups(const bound::Select& select);
  void CheckGrouped(const bound::Expr& value, const bound::Select& select, bool in_subquery);
  void CheckGrouped(const bound::Query& query, const bound::Select& select);

  // BinderFrom.cpp
  [[nodiscard]] bound::FromPtr BindFrom(const TableRef& table, const Scope* outer, Scope& visible);
  [[nodiscard]] bound::ExprPtr ResolveColumn(const ColumnRef& column, Place place,
                                             const Scope& scope);
  [[nodiscard]] bound::ExprPtr MakeColumn(const bound::Source& source, std::size_t index,
                                          Place place);

  // BinderValue.cpp
  [[nodiscard]] bound::ExprPtr BindValue(const Expr& value, const Context& context);
  [[nodiscard]] bound::ExprPtr BindArithmetic(const Expr& value, const Arithmetic& node,
                                              const Context& context);
  [[nodiscard]] bound::ExprPtr BindSign(const Expr& value, const Sign& node,
                                        const Context& context);
  [[nodiscard]] bound::ExprPtr BindCase(const Expr& value, const Case& node,
                                        const Context& context);
  [[nodiscard]] bound::ExprPtr BindCast(const Expr& value, const Cast& node,
                                        const Context& context);
  [[nodiscard]] bound::ExprPtr BindSubquery(const Expr& value, const Query& query,
                                            const Context& context);
  // A query in an expression, of one column.
  [[nodiscard]] bound::QueryPtr BindColumnQuery(const Query& query, const Context& context);

  // BinderCondition.cpp
  [[nodiscard]] bound::ExprPtr BindCondition(const Expr& condition, const Context& context);
  [[nodiscard]] bound::ExprPtr BindInQuery(const Expr& condition, const InQuery& node,
                                           const Context& context);
  [[nodiscard]] bound::ExprPtr BindLike(const Expr& condition, const Like& node,
                                        const Context& context);

  // BinderFunction.cpp
  [[nodiscard]] bound::ExprPtr BindCall(const Expr& value, const Call& call,
                                        const Context& context);
  [[nodiscard]] bound::ExprPtr BindAggregate(const Expr& value, const Call& call,
                                             bound::AggregateKind kind, const Context& context);
  void CheckAggregatePlace(const Expr& value, const Call& call, const Context& context);
  // A number of characters, or where they begin, stands in the text itself.
  void CheckCount(const bound::Expr& value, const std::string& function, bool from_one);
  // The size of a part of a text, and that its count is one.
  [[nodiscard]] int PartSize(const ValueType& text, const bound::Expr& count,
                             const std::string& function);
  [[nodiscard]] ValueType TypeOfCall(const Call& call, bound::Function function, Place place,
                                     std::vector<bound::ExprPtr>& arguments);

  // BinderConversion.cpp
  // The value as that type, as the rules of types ask for it; a literal that cannot be read as it
  // is refused at its place.
  [[nodiscard]] bound::ExprPtr ConvertTo(bound::ExprPtr value, const ValueType& target);
  [[nodiscard]] bound::ExprPtr ConvertLiteral(bound::ExprPtr value, const ValueType& target);
  // For what takes a text: numbers become one, dates are refused.
  [[nodiscard]] bound::ExprPtr ToText(bound::ExprPtr value, std::string_view taker);
  // Brings all values to their common type; what names the place for the error of a type clash.
  ValueType Unite(const std::vector<bound::ExprPtr*>& values, Place place, std::string_view what);
  // Before values are compared: 0, 1 and -1 beside a flag are flags.
  void UniteCompared(const std::vector<bound::ExprPtr*>& values, Place place,
                     std::string_view what);

  [[noreturn]] void Refuse(Place place, std::string_view why) const;

  const Statement& statement_;
  const Catalog& catalog_;
  std::vector<std::pair<const CatalogTable*, const CatalogColumn*>> named_;
};

// How an error shows a name: "items1"."itemname".
[[nodiscard]] std::string Quoted(std::string_view name);

[[nodiscard]] bound::ExprPtr MakeExpr(bound::Expr::Node node, const ValueType& type, Place place);

}  // namespace pstolvane1::sql
