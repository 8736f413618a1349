#include "tests/sql/Dump.h"

#include <array>
#include <string_view>

namespace pstolvane1::sql {
namespace {

constexpr std::array<std::string_view, 5> kArithmetic = {"+", "-", "*", "/", "%"};
constexpr std::array<std::string_view, 6> kCompare = {"=", "<>", "<", "<=", ">", ">="};
constexpr std::array<std::string_view, 5> kJoin = {"inner", "left", "right", "full", "cross"};
constexpr std::array<std::string_view, 3> kUnion = {"first", "union", "union-all"};

template <typename Table, typename Enum>
std::string Spelling(const Table& table, Enum value) {
  return std::string(table[static_cast<std::size_t>(value)]);
}

std::string Dump(const Name& name) { return "`" + name.text + "`"; }
std::string Dump(const TableRef& table);
std::string Dump(const QueryBranch& branch);
std::string Dump(const ExprPtr& e) { return e ? Dump(*e) : "-"; }
std::string Dump(const QueryPtr& q) { return Dump(*q); }
std::string Dump(const TableRefPtr& t) { return Dump(*t); }
std::string Dump(const CaseWhen& w) { return Dump(w.when) + " " + Dump(w.then); }
std::string Dump(const OrderItem& i) { return Dump(i.value) + (i.descending ? " desc" : ""); }
std::string Dump(const SelectItem& i) {
  const std::string value = i.IsStar() ? Dump(i.star_of) + ".*" : Dump(i.value);
  return "(" + value + " as " + Dump(i.alias) + ")";
}
template <typename T>
std::string Dump(const std::vector<T>& parts) {
  std::string text = "[";
  for (const T& part : parts) text += " " + Dump(part);
  return text + " ]";
}
std::string Dump(const std::optional<int>& number) {
  return number ? std::to_string(*number) : "-";
}
std::string Dump(const Select& s) {
  return std::string("(select ") + (s.distinct ? "distinct " : "") +
         (s.top ? "top " + std::to_string(*s.top) + " " : "") + Dump(s.items) + Dump(s.from) +
         Dump(s.where) + Dump(s.group_by) + Dump(s.having) + ")";
}
std::string Dump(const QueryBranch& b) { return Spelling(kUnion, b.joined_by) + Dump(b.select); }

template <typename... Parts>
std::string Node(std::string_view head, const Parts&... parts) {
  std::string text = "(" + std::string(head);
  ((text += " " + Dump(parts)), ...);
  return text + ")";
}

std::string Word(std::string_view word, bool negated) {
  return (negated ? "not-" : "") + std::string(word);
}

struct DumpNode {
  std::string operator()(const NumberLiteral& e) const { return e.digits; }
  std::string operator()(const TextLiteral& e) const { return "'" + e.text + "'"; }
  std::string operator()(const FlagLiteral& e) const { return e.value ? "true" : "false"; }
  std::string operator()(const NullLiteral&) const { return "null"; }
  std::string operator()(const ColumnRef& e) const { return Dump(e.table) + "." + Dump(e.column); }
  std::string operator()(const Sign& e) const {
    return Node(e.op == SignOp::kMinus ? "minus" : "plus", e.operand);
  }
  std::string operator()(const Arithmetic& e) const {
    return Node(Spelling(kArithmetic, e.op), e.left, e.right);
  }
  std::string operator()(const Call& e) const {
    return Node(e.star       ? "call-star"
                : e.distinct ? "call-distinct"
                             : "call",
                e.function, e.arguments);
  }
  std::string operator()(const Cast& e) const {
    return Node("cast", e.operand, e.type.name, e.type.size, e.type.scale);
  }
  std::string operator()(const Case& e) const {
    return Node("case", e.operand, e.whens, e.otherwise);
  }
  std::string operator()(const ScalarSubquery& e) const { return Node("scalar", e.query); }
  std::string operator()(const Comparison& e) const {
    return Node(Spelling(kCompare, e.op), e.left, e.right);
  }
  std::string operator()(const Not& e) const { return Node("not", e.operand); }
  std::string operator()(const Logical& e) const {
    return Node(e.op == LogicalOp::kOr ? "or" : "and", e.operands);
  }
  std::string operator()(const Between& e) const {
    return Node(Word("between", e.negated), e.operand, e.low, e.high);
  }
  std::string operator()(const InList& e) const {
    return Node(Word("in", e.negated), e.operand, e.list);
  }
  std::string operator()(const InQuery& e) const {
    return Node(Word("in", e.negated), e.operand, e.query);
  }
  std::string operator()(const Like& e) const {
    return Node(Word("like", e.negated), e.operand, e.pattern, e.escape);
  }
  std::string operator()(const IsNull& e) const {
    return Node(Word("is-null", e.negated), e.operand);
  }
  std::string operator()(const Exists& e) const { return Node("exists", e.query); }

  std::string operator()(const NamedTable& t) const { return Node("table", t.table, t.alias); }
  std::string operator()(const DerivedTable& t) const { return Node("derived", t.query, t.alias); }
  std::string operator()(const Join& t) const {
    return Node(Spelling(kJoin, t.kind), t.left, t.right, t.on);
  }
};

std::string Dump(const TableRef& table) { return std::visit(DumpNode(), table.node); }

}  // namespace

std::string Dump(const Expr& expression) { return std::visit(DumpNode(), expression.node); }

std::string Dump(const Query& query) {
  return "(query " + Dump(query.branches) + Dump(query.order_by) + ")";
}

}  // namespace pstolvane1::sql
