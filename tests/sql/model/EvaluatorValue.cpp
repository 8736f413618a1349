// Columns, arithmetic, CASE, CAST, functions, aggregates and subqueries that stand for a value.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <stdexcept>

#include "session/data/Error.h"
#include "tests/sql/model/Evaluator.h"

namespace pstolvane1::sql::model {
namespace {

std::string Lower(const std::string& text) {
  std::string lower = text;
  std::transform(lower.begin(), lower.end(), lower.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
  return lower;
}

Kind KindOfNumber(const NumberLiteral& number) {
  if (number.form == NumberLiteral::Form::kReal) return {Type::kReal};
  const std::size_t point = std::min(number.digits.find('.'), number.digits.size());
  std::string lead = number.digits.substr(0, point);
  lead.erase(0, std::min(lead.find_first_not_of('0'), lead.size()));
  const std::size_t places = point == number.digits.size() ? 0 : number.digits.size() - point - 1;
  const auto digits = static_cast<int>(std::max<std::size_t>(lead.size() + places, 1));
  const bool fits = lead.size() < 10 || (lead.size() == 10 && lead <= "2147483647");
  if (number.form == NumberLiteral::Form::kWhole && fits) return {Type::kWhole, digits};
  return {Type::kDecimal, digits, static_cast<int>(places)};
}

Value ValueOfNumber(const NumberLiteral& number) {
  if (number.form == NumberLiteral::Form::kReal) return Value::Real(std::stod(number.digits));
  Int128 exact = 0;
  for (const char c : number.digits) {
    if (c != '.') exact = exact * 10 + (c - '0');
  }
  return Value::Exact(exact);
}

Kind KindOfType(const TypeName& type) {
  const std::string name = Lower(type.name.text);
  if (name == "int") return {Type::kWhole};
  if (name == "bigint") return {Type::kBigWhole};
  if (name == "bit") return {Type::kFlag};
  if (name == "money") return {Type::kMoney};
  if (name == "real") return {Type::kSingle};
  if (name == "float") return {Type::kReal};
  if (name == "datetime") return {Type::kDate};
  if (name == "varchar") return {.type = Type::kText, .size = type.size.value_or(30)};
  if (name == "decimal") return {Type::kDecimal, type.size.value_or(18), type.scale.value_or(0)};
  throw std::logic_error("model: no type " + name);
}

// Milliseconds of days before 1970 are negative.
std::array<int, 3> YearMonthDay(const Value& date) {
  const std::string iso = IsoText(date);
  return {std::stoi(iso.substr(0, 4)), std::stoi(iso.substr(5, 2)), std::stoi(iso.substr(8, 2))};
}

Value PartOf(const std::string& text, Int128 begin, Int128 count) {
  const auto size = static_cast<Int128>(text.size());
  if (count < 0) throw Error(ErrorNumber::kQueryRefused, "model: a length below 0");
  const Int128 first = std::clamp(begin, Int128{0}, size);
  const Int128 last = std::clamp(begin + count, first, size);
  return Value::Text(
      text.substr(static_cast<std::size_t>(first), static_cast<std::size_t>(last - first)));
}

// A text that is kept in fewer characters.
Value Cut(const Value& value, const Kind& kind) {
  if (value.null || kind.type != Type::kText) return value;
  return PartOf(value.text, 0, kind.size);
}

Value TextFunction(const std::string& name, const std::string& text, const Row& arguments) {
  const auto size = static_cast<Int128>(text.size());
  if (name == "left") return PartOf(text, 0, arguments[1].exact);
  if (name == "right") {
    const Int128 count = arguments[1].exact;
    return PartOf(text, size - std::min(count, size), count);
  }
  if (name == "substring") return PartOf(text, arguments[1].exact - 1, arguments[2].exact);
  if (name == "lower") return Value::Text(Lower(text));
  if (name == "upper") {
    std::string upper = text;
    for (char& c : upper) c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c;
    return Value::Text(upper);
  }
  const std::size_t first = std::min(text.find_first_not_of(' '), text.size());
  const std::size_t last = text.find_last_not_of(' ');
  const std::size_t end = last == std::string::npos ? 0 : last + 1;
  if (name == "ltrim") return Value::Text(text.substr(first));
  if (name == "rtrim") return Value::Text(text.substr(0, end));
  if (name == "len") return Value::Exact(static_cast<Int128>(end));
  throw std::logic_error("model: no function " + name);
}

Value Quotient(const Value& sum, const Kind& kind, Int128 count, const Kind& result) {
  switch (kind.type) {
    case Type::kMoney:
      return Compute(ArithmeticOp::kDivide, sum, kind, Value::Exact(count), {Type::kWhole});
    case Type::kDecimal:
      return Fitting(sum.exact * PowerOfTen(result.places - kind.places) / count, result);
    case Type::kSingle:
    case Type::kReal:
      return Value::Real(sum.real / static_cast<double>(count));
    default:
      return Value::Exact(sum.exact / count);
  }
}

Kind KindOfSum(const Kind& argument, bool average) {
  if (argument.type == Type::kSingle) return {Type::kReal};
  if (argument.type != Type::kDecimal) return argument;
  return {Type::kDecimal, 38, average ? std::max(6, argument.places) : argument.places};
}

}  // namespace

bool SameName(const std::string& a, const std::string& b) { return Lower(a) == Lower(b); }

bool IsAggregate(const Call& call) {
  static const std::array<std::string, 5> kNames = {"sum", "avg", "min", "max", "count"};
  return std::find(kNames.begin(), kNames.end(), Lower(call.function.text)) != kNames.end();
}

std::pair<const Evaluator::Frame*, std::size_t> Evaluator::Find(const ColumnRef& column,
                                                                const Frame& frame) {
  for (const Frame* at = &frame; at != nullptr; at = at->outer) {
    for (std::size_t i = 0; i < at->columns->size(); ++i) {
      const Column& candidate = (*at->columns)[i];
      const bool of_table = !column.table || SameName(column.table.text, candidate.table);
      if (of_table && SameName(column.column.text, candidate.name)) {
        outermost_ = std::min(outermost_, at->depth);
        return {at, i};
      }
    }
  }
  throw std::logic_error("model: no column " + column.table.text + "." + column.column.text);
}

// --- Kinds

Kind Evaluator::KindOf(const Expr& expression, const Frame& frame) {
  std::optional<Kind>& known = kinds_.at(expression.id);
  if (!known) known = FindKind(expression, frame);
  return *known;
}

Kind Evaluator::FindKind(const Expr& expression, const Frame& frame) {
  if (const auto* number = expression.As<NumberLiteral>()) return KindOfNumber(*number);
  if (const auto* text = expression.As<TextLiteral>()) {
    return {.type = Type::kText, .size = std::max(1, static_cast<int>(text->text.size()))};
  }
  if (expression.As<FlagLiteral>() != nullptr) return {Type::kFlag};
  if (expression.As<NullLiteral>() != nullptr) return {Type::kNull};
  if (const auto* column = expression.As<ColumnRef>()) {
    const auto [found, index] = Find(*column, frame);
    return (*found->columns)[index].kind;
  }
  if (const auto* sign = expression.As<Sign>()) return KindOf(*sign->operand, frame);
  if (const auto* sum = expression.As<Arithmetic>()) {
    return KindOfArithmetic(sum->op, KindOf(*sum->left, frame), KindOf(*sum->right, frame));
  }
  if (const auto* call = expression.As<Call>()) return KindOfCall(*call, frame);
  if (const auto* cast = expression.As<Cast>()) return KindOfType(cast->type);
  if (const auto* chosen = expression.As<Case>()) return KindOfCase(*chosen, frame);
  if (const auto* subquery = expression.As<ScalarSubquery>()) {
    return ColumnsOf(*subquery->query, &frame)[0].kind;
  }
  throw std::logic_error("model: a condition has no kind");
}

Kind Evaluator::KindOfCase(const Case& chosen, const Frame& frame) {
  Kind kind = chosen.otherwise ? KindOf(*chosen.otherwise, frame) : Kind{};
  for (const CaseWhen& when : chosen.whens) kind = Common(kind, KindOf(*when.then, frame));
  return kind;
}

Kind Evaluator::KindOfCall(const Call& call, const Frame& frame) {
  const std::string name = Lower(call.function.text);
  if (name == "count" || name == "len" || name == "year" || name == "month" || name == "day") {
    return {Type::kWhole};
  }
  const Kind first = Plain(KindOf(*call.arguments[0], frame));
  if (name == "sum" || name == "avg") return KindOfSum(first, name == "avg");
  if (name == "isnull")
    return first.type == Type::kNull ? Plain(KindOf(*call.arguments[1], frame)) : first;
  if (name == "coalesce") {
    Kind kind = first;
    for (const ExprPtr& argument : call.arguments) kind = Common(kind, KindOf(*argument, frame));
    return kind;
  }
  if (name == "left" || name == "right" || name == "substring") return KindOfPart(call, first);
  return first;
}

// A count that is written out tells the most characters.
Kind Evaluator::KindOfPart(const Call& call, const Kind& text) {
  Kind part = text;
  const auto* count = call.arguments.back()->As<NumberLiteral>();
  if (count != nullptr) part.size = std::clamp(std::stoi(count->digits), 1, std::max(text.size, 1));
  return part;
}

// --- Values

Value Evaluator::ValueAs(const Expr& expression, const Kind& kind, const Frame& frame) {
  return Convert(ValueOf(expression, frame), KindOf(expression, frame), kind);
}

Value Evaluator::ValueOf(const Expr& expression, const Frame& frame) {
  if (const auto* number = expression.As<NumberLiteral>()) return ValueOfNumber(*number);
  if (const auto* text = expression.As<TextLiteral>()) return Value::Text(text->text);
  if (const auto* flag = expression.As<FlagLiteral>()) return Value::Exact(flag->value ? 1 : 0);
  if (expression.As<NullLiteral>() != nullptr) return {};
  if (const auto* column = expression.As<ColumnRef>()) {
    const auto [found, index] = Find(*column, frame);
    return (*found->row)[index];
  }
  if (const auto* sign = expression.As<Sign>()) {
    const Value value = ValueOf(*sign->operand, frame);
    return sign->op == SignOp::kPlus ? value : Negate(value, KindOf(*sign->operand, frame));
  }
  if (const auto* sum = expression.As<Arithmetic>()) {
    const Value left = ValueOf(*sum->left, frame);
    return Compute(sum->op, left, KindOf(*sum->left, frame), ValueOf(*sum->right, frame),
                   KindOf(*sum->right, frame));
  }
  if (const auto* call = expression.As<Call>()) return ValueOfCall(*call, frame);
  if (const auto* cast = expression.As<Cast>()) {
    return Cut(ValueAs(*cast->operand, KindOfType(cast->type), frame), KindOfType(cast->type));
  }
  if (const auto* chosen = expression.As<Case>()) return ValueOfCase(expression, *chosen, frame);
  if (const auto* subquery = expression.As<ScalarSubquery>()) {
    return ValueOfSubquery(*subquery->query, frame);
  }
  throw std::logic_error("model: a condition has no value");
}

Value Evaluator::ValueOfCase(const Expr& expression, const Case& chosen, const Frame& frame) {
  const Kind kind = KindOf(expression, frame);
  for (const CaseWhen& when : chosen.whens) {
    const Truth truth = chosen.operand
                            ? Compared(CompareOp::kEqual, *chosen.operand, *when.when, frame)
                            : TruthOf(*when.when, frame);
    if (truth == Truth::kTrue) return ValueAs(*when.then, kind, frame);
  }
  return chosen.otherwise ? ValueAs(*chosen.otherwise, kind, frame) : Value();
}

Value Evaluator::ValueOfSubquery(const Query& query, const Frame& frame) {
  const Relation rows = Rows(query, &frame);
  if (rows.rows.size() > 1) {
    throw Error(ErrorNumber::kQueryRefused, "model: several rows stand for one value");
  }
  return rows.rows.empty() ? Value() : rows.rows[0][0];
}

Value Evaluator::ValueOfCall(const Call& call, const Frame& frame) {
  if (IsAggregate(call)) return ValueOfAggregate(call, frame);
  const std::string name = Lower(call.function.text);
  const Kind kind = KindOfCall(call, frame);
  if (name == "isnull" || name == "coalesce") {
    for (const ExprPtr& argument : call.arguments) {
      const Value value = ValueAs(*argument, kind, frame);
      if (!value.null) return Cut(value, kind);
    }
    return {};
  }
  Row arguments;
  for (const ExprPtr& argument : call.arguments) arguments.push_back(ValueOf(*argument, frame));
  if (name == "nullif") {
    const Truth same = Compared(CompareOp::kEqual, *call.arguments[0], *call.arguments[1], frame);
    return same == Truth::kTrue ? Value() : arguments[0];
  }
  if (std::any_of(arguments.begin(), arguments.end(), [](const Value& v) { return v.null; })) {
    return {};
  }
  const Value& first = arguments[0];
  if (name == "abs") {
    const bool negative = first.exact < 0 || first.real < 0;
    return negative ? Negate(first, kind) : first;
  }
  if (name == "year") return Value::Exact(YearMonthDay(first)[0]);
  if (name == "month") return Value::Exact(YearMonthDay(first)[1]);
  if (name == "day") return Value::Exact(YearMonthDay(first)[2]);
  if (name == "round") {
    const int places = AsDecimal(kind).places;
    const auto kept = static_cast<int>(arguments[1].exact);
    if (kept >= places) return first;
    const Int128 unit = PowerOfTen(places - kept);
    return Fitting(Rounded(first.exact, unit) * unit, kind);
  }
  return TextFunction(name, first.text, arguments);
}

// --- Aggregates

// Null does not count; nothing at all gives Null, or 0 for COUNT.
Value Evaluator::ValueOfAggregate(const Call& call, const Frame& frame) {
  const std::string name = Lower(call.function.text);
  if (call.star) return Value::Exact(static_cast<Int128>(frame.group->size()));
  const Expr& argument = *call.arguments[0];
  const Frame single{frame.columns, nullptr, nullptr, frame.outer};
  const Kind kind = KindOf(argument, single);
  std::vector<Value> values;
  for (const Row* row : *frame.group) {
    Value value = ValueOf(argument, {frame.columns, row, nullptr, frame.outer});
    const auto same = [&](const Value& other) { return Order(other, value, kind) == 0; };
    const bool repeated = call.distinct && std::any_of(values.begin(), values.end(), same);
    if (!value.null && !repeated) values.push_back(std::move(value));
  }
  if (name == "count") return Value::Exact(static_cast<Int128>(values.size()));
  if (values.empty()) return {};
  const auto less = [&](const Value& a, const Value& b) { return Order(a, b, kind) < 0; };
  if (name == "min") return *std::min_element(values.begin(), values.end(), less);
  if (name == "max") return *std::max_element(values.begin(), values.end(), less);
  Value sum = Value::Exact(0);
  sum.real = 0;
  for (const Value& value : values) {
    sum.exact += value.exact;
    sum.real += value.real;
  }
  const Kind of_sum = KindOfSum(kind, false);
  if (of_sum.type != Type::kReal) (void)Fitting(sum.exact, of_sum);
  if (name == "sum") return sum;
  return Quotient(sum, of_sum, static_cast<Int128>(values.size()), KindOfSum(kind, true));
}

namespace {

void Collect(const Expr& expression, std::vector<const Call*>& found);

void Collect(const ExprPtr& expression, std::vector<const Call*>& found) {
  if (expression) Collect(*expression, found);
}

struct Collector {
  std::vector<const Call*>& found;

  void operator()(const Call& e) const {
    if (IsAggregate(e)) {
      found.push_back(&e);
    } else {
      for (const ExprPtr& argument : e.arguments) Collect(argument, found);
    }
  }
  void operator()(const Sign& e) const { Collect(e.operand, found); }
  void operator()(const Cast& e) const { Collect(e.operand, found); }
  void operator()(const Not& e) const { Collect(e.operand, found); }
  void operator()(const IsNull& e) const { Collect(e.operand, found); }
  void operator()(const InQuery& e) const { Collect(e.operand, found); }
  void operator()(const Arithmetic& e) const { Both(e); }
  void operator()(const Comparison& e) const { Both(e); }
  void operator()(const Logical& e) const {
    for (const ExprPtr& operand : e.operands) Collect(operand, found);
  }
  void operator()(const InList& e) const {
    Collect(e.operand, found);
    for (const ExprPtr& member : e.list) Collect(member, found);
  }
  void operator()(const Between& e) const {
    Collect(e.operand, found);
    Collect(e.low, found);
    Collect(e.high, found);
  }
  void operator()(const Like& e) const {
    Collect(e.operand, found);
    Collect(e.pattern, found);
  }
  void operator()(const Case& e) const {
    Collect(e.operand, found);
    for (const CaseWhen& when : e.whens) {
      Collect(when.when, found);
      Collect(when.then, found);
    }
    Collect(e.otherwise, found);
  }
  template <typename Leaf>
  void operator()(const Leaf&) const {}

  template <typename Pair>
  void Both(const Pair& e) const {
    Collect(e.left, found);
    Collect(e.right, found);
  }
};

void Collect(const Expr& expression, std::vector<const Call*>& found) {
  std::visit(Collector{found}, expression.node);
}

}  // namespace

std::vector<const Call*> AggregatesOf(const Expr& expression) {
  std::vector<const Call*> found;
  Collect(expression, found);
  return found;
}

}  // namespace pstolvane1::sql::model
