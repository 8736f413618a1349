#include <algorithm>
#include <cstdlib>

#include "session/sql/PostgresEmitter.h"

namespace pstolvane1::sql {
namespace {

// A divisor that stands in the text as a number other than 0.
bool IsSafeDivisor(const bound::Expr& divisor) {
  const auto* literal = divisor.As<bound::Literal>();
  return literal != nullptr && !literal->is_null &&
         std::strtod(literal->text.c_str(), nullptr) != 0;
}

// A whole number that no sum or product of two takes beyond its range.
bool IsSmall(const bound::Expr& value) {
  const auto* literal = value.As<bound::Literal>();
  return literal != nullptr && (literal->is_null || literal->text.size() <= 4);
}

bool IsInexact(Type type) { return type == Type::kSingle || type == Type::kReal; }

int PlacesOf(const bound::Expr& exact) { return AsDecimal(exact.type).places; }

std::string_view SignOf(ArithmeticOp op) {
  switch (op) {
    case ArithmeticOp::kAdd:
      return " + ";
    case ArithmeticOp::kSubtract:
      return " - ";
    case ArithmeticOp::kMultiply:
      return " * ";
    case ArithmeticOp::kDivide:
      return " / ";
    case ArithmeticOp::kModulo:
      return " % ";
  }
  return "";
}

PostgresText Joined(const PostgresText& left, ArithmeticOp op, const PostgresText& right) {
  const bool sum = op == ArithmeticOp::kAdd || op == ArithmeticOp::kSubtract;
  const PostgresBinding binding = sum ? PostgresBinding::kAdd : PostgresBinding::kMultiply;
  const PostgresBinding tighter = sum ? PostgresBinding::kMultiply : PostgresBinding::kSign;
  return {Bracketed(left, binding) + std::string(SignOf(op)) + Bracketed(right, tighter), binding};
}

}  // namespace

PostgresText PostgresEmitter::ArithmeticText(const bound::Arithmetic& node, const ValueType& type) {
  return node.op == ArithmeticOp::kDivide ? QuotientText(node, type) : SumText(node, type);
}

// Sums, products and remainders. The server reckons in advance what is the same for every row, also
// where no row asks for it; what may fail is kept from that.
PostgresText PostgresEmitter::SumText(const bound::Arithmetic& node, const ValueType& type) {
  PostgresText left = Value(*node.left);
  PostgresText right = Value(*node.right);
  const bool constant = bound::IsConstant(*node.left) && bound::IsConstant(*node.right);
  const bool safe = node.op == ArithmeticOp::kModulo ? IsSafeDivisor(*node.right)
                                                     : IsSmall(*node.left) && IsSmall(*node.right);
  if (constant && !safe) right = Unfolded(right);
  const bool product = node.op == ArithmeticOp::kMultiply;
  if (IsInexact(type.type)) {
    for (const auto& [side, text] :
         {std::pair{node.left.get(), &left}, {node.right.get(), &right}}) {
      if (!IsInexact(side->type.type)) *text = PostgresCast(*text, "float8");
    }
  } else if (product && type.type == Type::kMoney && node.left->type.type == Type::kMoney &&
             node.right->type.type == Type::kMoney) {
    return PostgresMoney(
        Joined(PostgresCast(left, "float8"), node.op, PostgresCast(right, "float8")));
  }
  PostgresText text = Joined(left, node.op, right);
  if (type.type != Type::kDecimal) return text;
  const int places = product ? PlacesOf(*node.left) + PlacesOf(*node.right)
                             : std::max(PlacesOf(*node.left), PlacesOf(*node.right));
  if (places <= type.places) return text;
  return PostgresCall("round", {text.text, std::to_string(type.places)});
}

PostgresText PostgresEmitter::QuotientText(const bound::Arithmetic& node, const ValueType& type) {
  PostgresText left = Value(*node.left);
  PostgresText right = Value(*node.right);
  const bool constant = bound::IsConstant(*node.left) && bound::IsConstant(*node.right);
  if (constant && !IsSafeDivisor(*node.right)) right = Unfolded(right);
  switch (type.type) {
    case Type::kWhole:
    case Type::kBigWhole:
      return Joined(left, node.op, right);
    case Type::kDecimal: {
      // A quotient of decimals is cut, so that it is counted in whole units of its last place.
      const std::string units = "1" + std::string(static_cast<std::size_t>(type.places), '0');
      const std::string unit =
          "0." + std::string(static_cast<std::size_t>(type.places - 1), '0') + "1";
      return Joined(
          PostgresCall("div", {Joined(left, ArithmeticOp::kMultiply, {units + "::numeric"}).text,
                               right.text}),
          ArithmeticOp::kMultiply, {unit});
    }
    case Type::kMoney:
      return PostgresMoney(
          Joined(PostgresCast(left, "float8"), node.op, PostgresCast(right, "float8")));
    default:
      break;
  }
  if (!IsInexact(node.left->type.type)) left = PostgresCast(left, "float8");
  if (!IsInexact(node.right->type.type)) right = PostgresCast(right, "float8");
  return Joined(left, node.op, right);
}

}  // namespace pstolvane1::sql
