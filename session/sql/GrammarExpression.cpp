// Operators, from the loosest (OR) to the tightest (a sign).
#include <algorithm>
#include <array>
#include <type_traits>

#include "session/sql/Grammar.h"

namespace pstolvane1::sql {
namespace {

std::uint32_t HeightOf(const ExprPtr& expression) { return expression ? expression->height : 0; }
std::uint32_t HeightOf(const QueryPtr& query) { return query->height; }
std::uint32_t HeightOf(const CaseWhen& when) {
  return std::max(HeightOf(when.when), HeightOf(when.then));
}
template <typename T>
std::uint32_t HeightOf(const std::vector<T>& parts) {
  std::uint32_t height = 0;
  for (const T& part : parts) height = std::max(height, HeightOf(part));
  return height;
}
template <typename... Parts>
std::uint32_t Highest(const Parts&... parts) {
  return std::max({HeightOf(parts)...});
}

struct HeightBelow {
  std::uint32_t operator()(const Sign& e) const { return HeightOf(e.operand); }
  std::uint32_t operator()(const Arithmetic& e) const { return Highest(e.left, e.right); }
  std::uint32_t operator()(const Call& e) const { return HeightOf(e.arguments); }
  std::uint32_t operator()(const Cast& e) const { return HeightOf(e.operand); }
  std::uint32_t operator()(const Case& e) const { return Highest(e.operand, e.whens, e.otherwise); }
  std::uint32_t operator()(const ScalarSubquery& e) const { return HeightOf(e.query); }
  std::uint32_t operator()(const Comparison& e) const { return Highest(e.left, e.right); }
  std::uint32_t operator()(const Not& e) const { return HeightOf(e.operand); }
  std::uint32_t operator()(const Logical& e) const { return HeightOf(e.operands); }
  std::uint32_t operator()(const Between& e) const { return Highest(e.operand, e.low, e.high); }
  std::uint32_t operator()(const InList& e) const { return Highest(e.operand, e.list); }
  std::uint32_t operator()(const InQuery& e) const { return Highest(e.operand, e.query); }
  std::uint32_t operator()(const Like& e) const { return Highest(e.operand, e.pattern, e.escape); }
  std::uint32_t operator()(const IsNull& e) const { return HeightOf(e.operand); }
  std::uint32_t operator()(const Exists& e) const { return HeightOf(e.query); }
  template <typename Leaf>
  std::uint32_t operator()(const Leaf&) const {
    return 0;
  }
};

struct CompareSign {
  std::string_view text;
  CompareOp op;
};
constexpr std::array<CompareSign, 9> kCompareSigns = {{{"=", CompareOp::kEqual},
                                                       {"<>", CompareOp::kNotEqual},
                                                       {"!=", CompareOp::kNotEqual},
                                                       {"<", CompareOp::kLess},
                                                       {"<=", CompareOp::kLessOrEqual},
                                                       {"!>", CompareOp::kLessOrEqual},
                                                       {">", CompareOp::kGreater},
                                                       {">=", CompareOp::kGreaterOrEqual},
                                                       {"!<", CompareOp::kGreaterOrEqual}}};

const CompareSign* CompareSignOf(const Token& token) {
  if (token.kind != TokenKind::kSign) return nullptr;
  const auto* found =
      std::find_if(kCompareSigns.begin(), kCompareSigns.end(),
                   [&token](const CompareSign& sign) { return sign.text == token.text; });
  return found == kCompareSigns.end() ? nullptr : found;
}

}  // namespace

ExprPtr Grammar::Make(Place place, Expr::Node node) {
  const std::uint32_t height = 1 + std::visit(HeightBelow(), node);
  if (height > Limits::kHeight) {
    Fail(place,
         "the expression nests more than " + std::to_string(Limits::kHeight) + " levels deep");
  }
  return std::make_unique<Expr>(Expr{std::move(node), place, statement_.expressions++, height});
}

ExprPtr Grammar::AsValue(ExprPtr expression, Place start) const {
  if (expression->IsCondition()) Fail(start, "expected a value, found a condition");
  return expression;
}

ExprPtr Grammar::AsCondition(ExprPtr expression, Place start) const {
  if (!expression->IsCondition()) {
    Fail(start, "expected a condition, found a value that is compared with nothing");
  }
  return expression;
}

ExprPtr Grammar::ReadValue() {
  const Place start = Peek().place;
  return AsValue(ReadExpression(), start);
}

ExprPtr Grammar::ReadCondition() {
  const Place start = Peek().place;
  condition_at_ = at_;
  return AsCondition(ReadExpression(), start);
}

ExprPtr Grammar::ReadExpression() {
  const Nesting nesting(*this);
  return ReadChain(LogicalOp::kOr);
}

ExprPtr Grammar::ReadChain(LogicalOp op) {
  const Keyword word = op == LogicalOp::kOr ? Keyword::kOr : Keyword::kAnd;
  const auto read_operand = [this, op] {
    return op == LogicalOp::kOr ? ReadChain(LogicalOp::kAnd) : ReadNot();
  };
  const Place start = Peek().place;
  ExprPtr first = read_operand();
  if (!IsKeyword(word)) return first;
  const Place place = Peek().place;
  Logical chain{op, {}};
  chain.operands.push_back(AsCondition(std::move(first), start));
  while (TakeKeyword(word)) {
    condition_at_ = at_;
    const Place operand = Peek().place;
    chain.operands.push_back(AsCondition(read_operand(), operand));
  }
  return Make(place, std::move(chain));
}

ExprPtr Grammar::ReadNot() {
  const Place place = Peek().place;
  if (!TakeKeyword(Keyword::kNot)) return ReadPredicate();
  const Nesting nesting(*this);
  condition_at_ = at_;
  const Place start = Peek().place;
  return Make(place, Not{AsCondition(ReadNot(), start)});
}

ExprPtr Grammar::ReadPredicate() {
  const Place start = Peek().place;
  ExprPtr left = ReadSum();
  for (;;) {
    const bool negated = IsKeyword(Keyword::kNot);
    const Keyword word = Peek(negated ? 1 : 0).keyword;
    if (CompareSignOf(Peek()) != nullptr) {
      left = ReadComparison(AsValue(std::move(left), start));
    } else if (IsKeyword(Keyword::kIs)) {
      left = ReadAfterIs(AsValue(std::move(left), start));
    } else if (word == Keyword::kIn) {
      left = ReadIn(AsValue(std::move(left), start), negated);
    } else if (word == Keyword::kBetween) {
      left = ReadBetween(AsValue(std::move(left), start), negated);
    } else if (word == Keyword::kLike) {
      left = ReadLike(AsValue(std::move(left), start), negated);
    } else if (negated) {
      Take();
      FailExpected("IN, BETWEEN or LIKE behind NOT");
    } else {
      return left;
    }
  }
}

ExprPtr Grammar::ReadComparison(ExprPtr left) {
  const Token sign = Take();
  if (IsKeyword(Keyword::kAll) || IsKeyword(Keyword::kAny) || IsKeyword(Keyword::kSome)) {
    Fail(Peek().place, "comparison with " + Found() +
                           " is not part of the dialect; MIN, MAX or EXISTS say the same");
  }
  const Place start = Peek().place;
  ExprPtr right = AsValue(ReadSum(), start);
  return Make(sign.place, Comparison{CompareSignOf(sign)->op, std::move(left), std::move(right)});
}

ExprPtr Grammar::ReadAfterIs(ExprPtr operand) {
  const Place place = Take().place;
  const bool negated = TakeKeyword(Keyword::kNot);
  ExpectKeyword(Keyword::kNull, negated ? "NULL" : "NULL or NOT NULL");
  return Make(place, IsNull{std::move(operand), negated});
}

ExprPtr Grammar::ReadIn(ExprPtr operand, bool negated) {
  const Place place = Take().place;
  if (negated) Take();
  if (IsSign("(") && EnclosesQuery()) {
    return Make(place, InQuery{std::move(operand), ReadEnclosedQuery(), negated});
  }
  ExpectSign("(");
  InList in{std::move(operand), {}, negated};
  do {
    in.list.push_back(ReadValue());
  } while (TakeSign(","));
  ExpectSign(")");
  return Make(place, std::move(in));
}

ExprPtr Grammar::ReadBetween(ExprPtr operand, bool negated) {
  const Place place = Take().place;
  if (negated) Take();
  const Place low_start = Peek().place;
  ExprPtr low = AsValue(ReadSum(), low_start);
  ExpectKeyword(Keyword::kAnd, "AND of BETWEEN");
  const Place high_start = Peek().place;
  ExprPtr high = AsValue(ReadSum(), high_start);
  return Make(place, Between{std::move(operand), std::move(low), std::move(high), negated});
}

ExprPtr Grammar::ReadLike(ExprPtr operand, bool negated) {
  const Place place = Take().place;
  if (negated) Take();
  const Place start = Peek().place;
  ExprPtr pattern = AsValue(ReadSum(), start);
  ExprPtr escape;
  if (TakeKeyword(Keyword::kEscape)) {
    const Place escape_start = Peek().place;
    escape = AsValue(ReadSum(), escape_start);
  }
  return Make(place, Like{std::move(operand), std::move(pattern), std::move(escape), negated});
}

ExprPtr Grammar::ReadSum() {
  const Place start = Peek().place;
  ExprPtr left = ReadProduct();
  while (IsSign("+") || IsSign("-")) {
    const Token sign = Take();
    const Place right_start = Peek().place;
    ExprPtr right = AsValue(ReadProduct(), right_start);
    const ArithmeticOp op = sign.text == "+" ? ArithmeticOp::kAdd : ArithmeticOp::kSubtract;
    left = Make(sign.place, Arithmetic{op, AsValue(std::move(left), start), std::move(right)});
  }
  return left;
}

ExprPtr Grammar::ReadProduct() {
  const Place start = Peek().place;
  ExprPtr left = ReadSigned();
  while (IsSign("*") || IsSign("/") || IsSign("%")) {
    const Token sign = Take();
    const Place right_start = Peek().place;
    ExprPtr right = AsValue(ReadSigned(), right_start);
    const ArithmeticOp op = sign.text == "*"   ? ArithmeticOp::kMultiply
                            : sign.text == "/" ? ArithmeticOp::kDivide
                                               : ArithmeticOp::kModulo;
    left = Make(sign.place, Arithmetic{op, AsValue(std::move(left), start), std::move(right)});
  }
  return left;
}

ExprPtr Grammar::ReadSigned() {
  if (!IsSign("-") && !IsSign("+")) return ReadPrimary();
  const Nesting nesting(*this);
  const Token sign = Take();
  const Place start = Peek().place;
  const SignOp op = sign.text == "-" ? SignOp::kMinus : SignOp::kPlus;
  return Make(sign.place, Sign{op, AsValue(ReadSigned(), start)});
}

}  // namespace pstolvane1::sql
