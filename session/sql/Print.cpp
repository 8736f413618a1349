#include "session/sql/Print.h"

#include <array>
#include <string_view>

#include "session/sql/Lexer.h"

namespace pstolvane1::sql {
namespace {

// How tightly the outermost operator of an expression binds.
enum Binding { kOr, kAnd, kNot, kPredicate, kSum, kProduct, kSign, kPrimary };

struct BindingOf {
  Binding operator()(const Logical& e) const { return e.op == LogicalOp::kOr ? kOr : kAnd; }
  Binding operator()(const Not&) const { return kNot; }
  Binding operator()(const Comparison&) const { return kPredicate; }
  Binding operator()(const Between&) const { return kPredicate; }
  Binding operator()(const InList&) const { return kPredicate; }
  Binding operator()(const InQuery&) const { return kPredicate; }
  Binding operator()(const Like&) const { return kPredicate; }
  Binding operator()(const IsNull&) const { return kPredicate; }
  Binding operator()(const Arithmetic& e) const {
    return e.op == ArithmeticOp::kAdd || e.op == ArithmeticOp::kSubtract ? kSum : kProduct;
  }
  Binding operator()(const Sign&) const { return kSign; }
  template <typename Other>
  Binding operator()(const Other&) const {
    return kPrimary;
  }
};

constexpr std::array<std::string_view, 5> kArithmeticSigns = {" + ", " - ", " * ", " / ", " % "};
constexpr std::array<std::string_view, 6> kCompareSigns = {" = ",  " <> ", " < ",
                                                           " <= ", " > ",  " >= "};
constexpr std::array<std::string_view, 5> kJoins = {" INNER JOIN ", " LEFT JOIN ", " RIGHT JOIN ",
                                                    " FULL JOIN ", " CROSS JOIN "};

template <typename Table, typename Enum>
std::string_view Spelling(const Table& table, Enum value) {
  return table[static_cast<std::size_t>(value)];
}

class Printer {
 public:
  std::string Take() { return std::move(out_); }

  void Write(const Query& query) {
    for (const QueryBranch& branch : query.branches) {
      if (branch.joined_by == UnionKind::kDistinct) out_ += " UNION ";
      if (branch.joined_by == UnionKind::kAll) out_ += " UNION ALL ";
      Write(branch.select);
    }
    WriteList(" ORDER BY ", query.order_by, [this](const OrderItem& item) {
      Write(*item.value);
      if (item.descending) out_ += " DESC";
    });
  }

  void Write(const Expr& expression, Binding at_least = kOr) {
    const bool enclosed = std::visit(BindingOf(), expression.node) < at_least;
    if (enclosed) out_ += '(';
    std::visit(*this, expression.node);
    if (enclosed) out_ += ')';
  }

  void Write(const TableRef& table) { std::visit(*this, table.node); }

  // --- Values
  void operator()(const NumberLiteral& e) { out_ += e.digits; }
  void operator()(const TextLiteral& e) { WriteQuoted(e.text, '\'', '\''); }
  void operator()(const FlagLiteral& e) { out_ += e.value ? "true" : "false"; }
  void operator()(const NullLiteral&) { out_ += "NULL"; }
  void operator()(const ColumnRef& e) {
    if (e.table) {
      Write(e.table);
      out_ += '.';
    }
    Write(e.column);
  }
  void operator()(const Sign& e) {
    out_ += e.op == SignOp::kMinus ? '-' : '+';
    // Two signs in a row would begin a comment.
    if (e.operand->As<Sign>() != nullptr) out_ += ' ';
    Write(*e.operand, kSign);
  }
  void operator()(const Arithmetic& e) {
    const Binding own = BindingOf()(e);
    Write(*e.left, own);
    out_ += Spelling(kArithmeticSigns, e.op);
    Write(*e.right, own == kSum ? kProduct : kSign);
  }
  void operator()(const Call& e) {
    out_ += e.function.text;
    out_ += e.star ? "(*" : e.distinct ? "(DISTINCT " : "(";
    WriteList("", e.arguments, [this](const ExprPtr& argument) { Write(*argument); });
    out_ += ')';
  }
  void operator()(const Cast& e) {
    out_ += "CAST(";
    Write(*e.operand);
    out_ += " AS ";
    Write(e.type.name);
    if (e.type.size) out_ += "(" + std::to_string(*e.type.size);
    if (e.type.scale) out_ += ", " + std::to_string(*e.type.scale);
    if (e.type.size) out_ += ')';
    out_ += ')';
  }
  void operator()(const Case& e) {
    out_ += "CASE";
    if (e.operand) WriteBehind(" ", *e.operand);
    for (const CaseWhen& when : e.whens) {
      WriteBehind(" WHEN ", *when.when);
      WriteBehind(" THEN ", *when.then);
    }
    if (e.otherwise) WriteBehind(" ELSE ", *e.otherwise);
    out_ += " END";
  }
  void operator()(const ScalarSubquery& e) { WriteEnclosed("(", *e.query); }

  // --- Conditions
  void operator()(const Comparison& e) {
    Write(*e.left, kSum);
    out_ += Spelling(kCompareSigns, e.op);
    Write(*e.right, kSum);
  }
  void operator()(const Not& e) {
    out_ += "NOT ";
    Write(*e.operand, kNot);
  }
  void operator()(const Logical& e) {
    for (std::size_t i = 0; i < e.operands.size(); ++i) {
      if (i > 0) out_ += e.op == LogicalOp::kOr ? " OR " : " AND ";
      Write(*e.operands[i], e.op == LogicalOp::kOr ? kAnd : kNot);
    }
  }
  void operator()(const Between& e) {
    Write(*e.operand, kSum);
    out_ += e.negated ? " NOT" : "";
    WriteBehind(" BETWEEN ", *e.low);
    WriteBehind(" AND ", *e.high);
  }
  void operator()(const InList& e) {
    Write(*e.operand, kSum);
    out_ += e.negated ? " NOT IN (" : " IN (";
    WriteList("", e.list, [this](const ExprPtr& member) { Write(*member); });
    out_ += ')';
  }
  void operator()(const InQuery& e) {
    Write(*e.operand, kSum);
    WriteEnclosed(e.negated ? " NOT IN (" : " IN (", *e.query);
  }
  void operator()(const Like& e) {
    Write(*e.operand, kSum);
    out_ += e.negated ? " NOT" : "";
    WriteBehind(" LIKE ", *e.pattern);
    if (e.escape) WriteBehind(" ESCAPE ", *e.escape);
  }
  void operator()(const IsNull& e) {
    Write(*e.operand, kSum);
    out_ += e.negated ? " IS NOT NULL" : " IS NULL";
  }
  void operator()(const Exists& e) { WriteEnclosed("EXISTS (", *e.query); }

  // --- Tables
  void operator()(const NamedTable& t) {
    Write(t.table);
    WriteAlias(t.alias);
  }
  void operator()(const DerivedTable& t) {
    WriteEnclosed("(", *t.query);
    WriteAlias(t.alias);
  }
  // A join on the right side needs parentheses only where no ON closes it.
  void operator()(const Join& t) {
    const bool enclosed = t.kind == JoinKind::kCross && t.right->As<Join>() != nullptr;
    Write(*t.left);
    out_ += Spelling(kJoins, t.kind);
    if (enclosed) out_ += '(';
    Write(*t.right);
    if (enclosed) out_ += ')';
    if (t.on) WriteBehind(" ON ", *t.on);
  }

 private:
  void WriteBehind(std::string_view word, const Expr& expression) {
    out_ += word;
    Write(expression);
  }

  void WriteEnclosed(std::string_view open, const Query& query) {
    out_ += open;
    Write(query);
    out_ += ')';
  }

  template <typename Members, typename WriteMember>
  void WriteList(std::string_view announced, const Members& members, WriteMember write) {
    std::string_view before = announced;
    for (const auto& member : members) {
      out_ += before;
      write(member);
      before = ", ";
    }
  }

  void WriteQuoted(std::string_view text, char open, char close) {
    out_ += open;
    for (const char c : text) {
      out_ += c;
      if (c == close) out_ += c;
    }
    out_ += close;
  }

  void Write(const Name& name) {
    if (IsBareName(name.text)) {
      out_ += name.text;
    } else {
      WriteQuoted(name.text, '[', ']');
    }
  }

  void WriteAlias(const Name& alias) {
    if (!alias) return;
    out_ += " AS ";
    Write(alias);
  }

  void Write(const SelectItem& item) {
    if (item.star_of) {
      Write(item.star_of);
      out_ += '.';
    }
    if (item.IsStar()) {
      out_ += '*';
    } else {
      Write(*item.value);
    }
    WriteAlias(item.alias);
  }

  void Write(const Select& select) {
    out_ += select.distinct ? "SELECT DISTINCT " : "SELECT ";
    if (select.top) out_ += "TOP " + std::to_string(*select.top) + " ";
    WriteList("", select.items, [this](const SelectItem& item) { Write(item); });
    WriteList(" FROM ", select.from, [this](const TableRefPtr& table) { Write(*table); });
    if (select.where) WriteBehind(" WHERE ", *select.where);
    WriteList(" GROUP BY ", select.group_by, [this](const ExprPtr& key) { Write(*key); });
    if (select.having) WriteBehind(" HAVING ", *select.having);
  }

  std::string out_;
};

template <typename Tree>
std::string PrintTree(const Tree& tree) {
  Printer printer;
  printer.Write(tree);
  return printer.Take();
}

}  // namespace

std::string Print(const Query& query) { return PrintTree(query); }
std::string Print(const Expr& expression) { return PrintTree(expression); }
std::string Print(const TableRef& table) { return PrintTree(table); }

}  // namespace pstolvane1::sql
