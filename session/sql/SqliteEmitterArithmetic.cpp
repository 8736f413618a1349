#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>

#include "session/sql/SqliteEmitter.h"

namespace pstolvane1::sql {
namespace {

// A divisor that stands in the text as a number other than 0.
const std::string* LiteralDivisor(const bound::Expr& divisor) {
  const auto* literal = divisor.As<bound::Literal>();
  if (literal == nullptr || literal->is_null) return nullptr;
  return std::strtod(literal->text.c_str(), nullptr) != 0 ? &literal->text : nullptr;
}

bool IsOne(const std::string& digits) { return std::strtod(digits.c_str(), nullptr) == 1; }

std::string AsReal(const std::string& digits) {
  return digits.find_first_of(".eE") == std::string::npos ? digits + ".0" : digits;
}

// Of a result that reckons to at most so much; SQLite goes on with infinity where it is more.
SqliteState FloatState(double reach, bool real) {
  SqliteState state;
  state.real = real;
  state.form = std::isfinite(reach) ? SqliteForm::kSettled : SqliteForm::kRaw;
  state.reach = std::isfinite(reach) ? reach : std::numeric_limits<double>::max();
  return state;
}

int PlacesOf(const bound::Expr& exact) { return AsDecimal(exact.type).places; }

}  // namespace

SqliteText SqliteEmitter::ArithmeticText(const bound::Arithmetic& node, const ValueType& type) {
  switch (node.op) {
    case ArithmeticOp::kDivide:
      return QuotientText(node, type);
    case ArithmeticOp::kModulo:
      return RemainderText(node);
    default:
      return SumText(node, type);
  }
}

SqliteText SqliteEmitter::SumText(const bound::Arithmetic& node, const ValueType& type) {
  const bool product = node.op == ArithmeticOp::kMultiply;
  const SqliteBinding binding = product ? SqliteBinding::kMultiply : SqliteBinding::kAdd;
  const SqliteBinding tighter = product ? SqliteBinding::kConcat : SqliteBinding::kMultiply;
  // The noise of a sum may stay in another sum; in a product it could turn a tie.
  const SqliteText left = product ? Settled(*node.left) : Rounded(*node.left);
  const SqliteText right = product ? Settled(*node.right) : Rounded(*node.right);
  const char* sign = product ? " * " : node.op == ArithmeticOp::kAdd ? " + " : " - ";
  SqliteText text{Bracketed(left, binding) + sign + Bracketed(right, tighter), binding, {}};
  text.state.real = left.state.real || right.state.real;
  if (type.type == Type::kMoney) {
    const bool both = node.left->type.type == Type::kMoney && node.right->type.type == Type::kMoney;
    text.state.form = product && both ? SqliteForm::kRaw : SqliteForm::kNoise;
  } else if (type.type == Type::kDecimal) {
    const int places = product ? PlacesOf(*node.left) + PlacesOf(*node.right)
                               : std::max(PlacesOf(*node.left), PlacesOf(*node.right));
    text.state.form = places > type.places ? SqliteForm::kRaw : SqliteForm::kNoise;
  } else if (IsFloat(type.type)) {
    const double a = ReachOf(left, node.left->type);
    const double b = ReachOf(right, node.right->type);
    text.state = FloatState(product ? a * b : a + b, text.state.real);
  } else if (IsWhole(type.type)) {
    const SqliteState& a = left.state;
    const SqliteState& b = right.state;
    if (product) {
      const auto [low, high] =
          std::minmax({a.low * b.low, a.low * b.high, a.high * b.low, a.high * b.high});
      text.state.low = low;
      text.state.high = high;
    } else {
      const bool add = node.op == ArithmeticOp::kAdd;
      text.state.low = a.low + (add ? b.low : -b.high);
      text.state.high = a.high + (add ? b.high : -b.low);
    }
    const SqliteState all = WholeState(type);
    const bool fits = text.state.low >= all.low && text.state.high <= all.high;
    text.state.form = fits ? SqliteForm::kSettled : SqliteForm::kRaw;
  }
  return text;
}

SqliteText SqliteEmitter::QuotientText(const bound::Arithmetic& node, const ValueType& type) {
  const std::string* literal = LiteralDivisor(*node.right);
  SqliteText left = Settled(*node.left);
  if (literal != nullptr && IsOne(*literal)) return left;
  if (IsWhole(type.type)) {
    if (literal != nullptr) {
      return {Bracketed(left, SqliteBinding::kMultiply) + " / " + *literal,
              SqliteBinding::kMultiply, WholeState(type)};
    }
    return SqliteCall("pst_div_whole",
                      {left.text, Settled(*node.right).text, std::to_string(BitsOf(type.type))},
                      WholeState(type));
  }
  if (type.type == Type::kDecimal) {
    return SqliteCall("pst_div_decimal",
                      {left.text, std::to_string(PlacesOf(*node.left)), Settled(*node.right).text,
                       std::to_string(PlacesOf(*node.right)), std::to_string(type.places)});
  }
  SqliteState state;
  state.real = true;
  if (type.type == Type::kMoney) state.form = SqliteForm::kRaw;
  if (literal != nullptr) {
    const std::string divisor = left.state.real ? *literal : AsReal(*literal);
    if (IsFloat(type.type)) {
      const double by = std::fabs(std::strtod(literal->c_str(), nullptr));
      state = FloatState(ReachOf(left, node.left->type) / by, true);
    }
    return {Bracketed(left, SqliteBinding::kMultiply) + " / " + divisor, SqliteBinding::kMultiply,
            state};
  }
  return SqliteCall("pst_div_real", {left.text, Settled(*node.right).text}, state);
}

SqliteText SqliteEmitter::RemainderText(const bound::Arithmetic& node) {
  const SqliteText left = Settled(*node.left);
  const ValueType& type = node.left->type;
  if (const std::string* literal = LiteralDivisor(*node.right)) {
    return {Bracketed(left, SqliteBinding::kMultiply) + " % " + *literal, SqliteBinding::kMultiply,
            WholeState(type)};
  }
  return SqliteCall("pst_mod", {left.text, Settled(*node.right).text}, WholeState(type));
}

}  // namespace pstolvane1::sql
