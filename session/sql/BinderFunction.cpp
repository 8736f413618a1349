#include <algorithm>

#include "session/sql/Binder.h"
#include "session/sql/Names.h"

namespace pstolvane1::sql {
namespace {

struct AggregateName {
  std::string_view name;
  bound::AggregateKind kind;
};
constexpr AggregateName kAggregates[] = {
    {"count", bound::AggregateKind::kCount}, {"sum", bound::AggregateKind::kSum},
    {"avg", bound::AggregateKind::kAverage}, {"min", bound::AggregateKind::kMinimum},
    {"max", bound::AggregateKind::kMaximum},
};

// The functions that the texts may call; there are no others.
struct FunctionName {
  std::string_view name;
  bound::Function function;
  std::size_t least, most;  // arguments
};
constexpr FunctionName kFunctions[] = {
    {"abs", bound::Function::kAbs, 1, 1},
    {"round", bound::Function::kRound, 2, 2},
    {"isnull", bound::Function::kIsNull, 2, 2},
    {"coalesce", bound::Function::kCoalesce, 2, 1000},
    {"nullif", bound::Function::kNullIf, 2, 2},
    {"year", bound::Function::kYear, 1, 1},
    {"month", bound::Function::kMonth, 1, 1},
    {"day", bound::Function::kDay, 1, 1},
    {"left", bound::Function::kLeft, 2, 2},
    {"right", bound::Function::kRight, 2, 2},
    {"substring", bound::Function::kSubstring, 3, 3},
    {"len", bound::Function::kLength, 1, 1},
    {"upper", bound::Function::kUpper, 1, 1},
    {"lower", bound::Function::kLower, 1, 1},
    {"ltrim", bound::Function::kTrimLeft, 1, 1},
    {"rtrim", bound::Function::kTrimRight, 1, 1},
};

template <typename Table>
auto FindName(const Table& table, std::string_view name) {
  const auto* found =
      std::ranges::find_if(table, [&](const auto& row) { return SameName(row.name, name); });
  return found == std::end(table) ? nullptr : found;
}

std::string ArgumentCount(const FunctionName& function) {
  const std::string least = std::to_string(function.least);
  if (function.most > 10) return "at least " + least + " arguments";
  return least + (function.least == 1 ? " argument" : " arguments");
}

ValueType SumType(bound::AggregateKind kind, ValueType type) {
  if (type.type == Type::kSingle) type.type = Type::kReal;
  if (type.type == Type::kDecimal) {
    type.digits = 38;
    if (kind == bound::AggregateKind::kAverage) type.places = std::max(type.places, 6);
  }
  return type;
}

}  // namespace

bound::ExprPtr Binder::BindCall(const Expr& value, const Call& call, const Context& context) {
  const std::string& name = call.function.text;
  if (const AggregateName* aggregate = FindName(kAggregates, name)) {
    return BindAggregate(value, call, aggregate->kind, context);
  }
  const FunctionName* function = FindName(kFunctions, name);
  if (function == nullptr) Refuse(call.function.place, "unknown function " + Quoted(name));
  if (call.star || call.distinct) {
    Refuse(value.place, Quoted(name) + " takes neither \"*\" nor DISTINCT");
  }
  if (call.arguments.size() < function->least || call.arguments.size() > function->most) {
    Refuse(value.place, Quoted(name) + " takes " + ArgumentCount(*function) + ", not " +
                            std::to_string(call.arguments.size()));
  }
  std::vector<bound::ExprPtr> arguments;
  for (const ExprPtr& argument : call.arguments) {
    arguments.push_back(BindValue(*argument, context));
  }
  const ValueType type = TypeOfCall(call, function->function, value.place, arguments);
  return MakeExpr(bound::Call{function->function, std::move(arguments)}, type, value.place);
}

void Binder::CheckCount(const bound::Expr& value, const std::string& function, bool from_one) {
  const auto* literal = value.As<bound::Literal>();
  const bool count = literal != nullptr && !literal->is_null && value.type.type == Type::kWhole &&
                     !(from_one && literal->text == "0");
  if (count) return;
  Refuse(value.place, "this argument of " + Quoted(function) + " is a whole number from " +
                          (from_one ? "1" : "0") + " on, written in digits");
}

int Binder::PartSize(const ValueType& text, const bound::Expr& count, const std::string& function) {
  CheckCount(count, function, false);
  const int size = std::max(std::stoi(count.As<bound::Literal>()->text), 1);
  return text.size == 0 ? size : std::min(size, text.size);
}

ValueType Binder::TypeOfCall(const Call& call, bound::Function function, Place place,
                             std::vector<bound::ExprPtr>& arguments) {
  using F = bound::Function;
  const std::string& name = call.function.text;
  bound::ExprPtr& first = arguments[0];
  switch (function) {
    case F::kAbs:
    case F::kRound: {
      if (!IsNumber(first->type.type) || first->type.type == Type::kFlag) {
        Refuse(first->place, Quoted(name) + " takes a number, not " + NameOf(first->type));
      }
      ValueType type = first->type;
      if (function == F::kAbs) return type;
      arguments[1] = ConvertTo(std::move(arguments[1]), {Type::kWhole});
      if (type.type == Type::kSingle) type.type = Type::kReal;
      return type;
    }
    case F::kIsNull: {
      if (first->type.type == Type::kNull) first = ConvertTo(std::move(first), arguments[1]->type);
      const ValueType type = first->type;
      arguments[1] = ConvertTo(std::move(arguments[1]), type);
      return type;
    }
    case F::kCoalesce: {
      std::vector<bound::ExprPtr*> all;
      all.reserve(arguments.size());
      for (bound::ExprPtr& argument : arguments) all.push_back(&argument);
      const ValueType type = Unite(all, place, "COALESCE");
      return type;
    }
    case F::kNullIf: {
      const ValueType type = first->type;
      const auto common = CommonType(type, arguments[1]->type);
      if (type.type == Type::kNull || !common ||
          (type.type == Type::kText && common->type != Type::kText)) {
        Refuse(place,
               "type clash: " + NameOf(type) + " and " + NameOf(arguments[1]->type) + " in NULLIF");
      }
      if (!IsNumber(arguments[1]->type.type)) {
        arguments[1] = ConvertTo(std::move(arguments[1]), *common);
      }
      return type;
    }
    case F::kYear:
    case F::kMonth:
    case F::kDay:
      if (IsNumber(first->type.type)) {
        Refuse(first->place, Quoted(name) + " takes a date, not " + NameOf(first->type));
      }
      first = ConvertTo(std::move(first), {Type::kDate, 0, 0, 0, true});
      return {Type::kWhole};
    case F::kLeft:
    case F::kRight: {
      first = ToText(std::move(first), name);
      return {Type::kText, PartSize(first->type, *arguments[1], name)};
    }
    case F::kSubstring: {
      first = ToText(std::move(first), name);
      CheckCount(*arguments[1], name, true);
      return {Type::kText, PartSize(first->type, *arguments[2], name)};
    }
    case F::kLength:
      first = ToText(std::move(first), name);
      return {Type::kWhole};
    case F::kUpper:
    case F::kLower:
    case F::kTrimLeft:
    case F::kTrimRight:
      first = ToText(std::move(first), name);
      return {Type::kText, first->type.size};
  }
  Refuse(place, "unknown function " + Quoted(name));
}

void Binder::CheckAggregatePlace(const Expr& value, const Call& call, const Context& context) {
  const std::string name = Quoted(call.function.text);
  if (context.in_aggregate) {
    Refuse(value.place, "the aggregate " + name + " cannot stand inside another one");
  }
  switch (context.clause) {
    case Clause::kWhere:
      Refuse(value.place, "the aggregate " + name + " cannot stand in WHERE: use HAVING");
    case Clause::kOn:
      Refuse(value.place, "the aggregate " + name + " cannot stand in ON");
    case Clause::kGroupBy:
      Refuse(value.place, "the aggregate " + name + " cannot stand in GROUP BY");
    default:
      break;
  }
  const bool counts_rows =
      call.star && FindName(kAggregates, call.function.text)->kind == bound::AggregateKind::kCount;
  if (call.star && !counts_rows) Refuse(value.place, name + " does not take \"*\"");
  if (call.star && call.distinct) Refuse(value.place, "count(*) does not take DISTINCT");
  if (!call.star && call.arguments.size() != 1) {
    Refuse(value.place, name + " takes 1 argument, not " + std::to_string(call.arguments.size()));
  }
}

bound::ExprPtr Binder::BindAggregate(const Expr& value, const Call& call, bound::AggregateKind kind,
                                     const Context& context) {
  CheckAggregatePlace(value, call, context);
  context.select->aggregated = true;
  if (call.star)
    return MakeExpr(bound::Aggregate{kind, false, nullptr}, {Type::kWhole}, value.place);
  Context inside = context;
  inside.in_aggregate = true;
  bound::ExprPtr argument = BindValue(*call.arguments[0], inside);
  if (!bound::IsConstant(*argument) && !bound::TakesColumnOf(*argument, *context.select)) {
    Refuse(value.place, "the aggregate " + Quoted(call.function.text) +
                            " takes only columns of the query around its own");
  }
  ValueType type = argument->type;
  const bool sums = kind == bound::AggregateKind::kSum || kind == bound::AggregateKind::kAverage;
  if (sums && (!IsNumber(type.type) || type.type == Type::kFlag)) {
    Refuse(value.place,
           Quoted(call.function.text) + " takes a number, not " + NameOf(type) +
               (type.type == Type::kFlag ? ": count it with sum(case when ... then 1 else 0 end)"
                                         : ""));
  }
  if (!sums && kind != bound::AggregateKind::kCount && type.type == Type::kFlag) {
    Refuse(value.place, Quoted(call.function.text) + " does not take a flag");
  }
  if (sums) type = SumType(kind, type);
  if (kind == bound::AggregateKind::kCount) type = {Type::kWhole};
  return MakeExpr(bound::Aggregate{kind, call.distinct, std::move(argument)}, type, value.place);
}

}  // namespace pstolvane1::sql
