// What operators join: literals, columns, calls, CASE, CAST and what stands in parentheses.
#include <charconv>

#include "session/sql/Grammar.h"

namespace pstolvane1::sql {

ExprPtr Grammar::ReadPrimary() {
  const Token& token = Peek();
  switch (token.kind) {
    case TokenKind::kNumber: {
      Token number = Take();
      return Make(number.place, NumberLiteral{number.form, std::move(number.text)});
    }
    case TokenKind::kText: {
      Token text = Take();
      return Make(text.place, TextLiteral{std::move(text.text)});
    }
    case TokenKind::kQuotedName:
      return ReadNamed();
    case TokenKind::kWord:
      return token.keyword == Keyword::kNone ? ReadNamed() : ReadKeywordPrimary();
    case TokenKind::kSign:
      if (IsSign("(")) return ReadParenthesis();
      break;
    case TokenKind::kEnd:
      break;
  }
  FailExpectedOperand();
}

ExprPtr Grammar::ReadKeywordPrimary() {
  const Place place = Peek().place;
  switch (Peek().keyword) {
    case Keyword::kTrue:
    case Keyword::kFalse: {
      const bool value = Take().keyword == Keyword::kTrue;
      return Make(place, FlagLiteral{value});
    }
    case Keyword::kNull:
      Take();
      return Make(place, NullLiteral{});
    case Keyword::kCase:
      return ReadCase();
    case Keyword::kCast:
      return ReadCast();
    case Keyword::kExists:
      Take();
      if (!IsSign("(") || !EnclosesQuery()) FailExpected("a SELECT in parentheses behind EXISTS");
      return Make(place, Exists{ReadEnclosedQuery()});
    case Keyword::kLeft:
    case Keyword::kRight:
      if (IsSign("(", 1)) {
        Token word = Take();
        return ReadCall({std::move(word.text), place});
      }
      break;
    case Keyword::kSelect:
      Fail(place, "a SELECT that gives a value stands in parentheses");
    default:
      break;
  }
  FailExpectedOperand();
}

void Grammar::FailExpectedOperand() const {
  FailExpected(at_ == condition_at_ ? "a condition" : "a value");
}

ExprPtr Grammar::ReadParenthesis() {
  const Place place = Peek().place;
  if (EnclosesQuery()) return Make(place, ScalarSubquery{ReadEnclosedQuery()});
  ExpectSign("(");
  if (at_ == condition_at_ + 1) condition_at_ = at_;
  ExprPtr inside = ReadExpression();
  ExpectSign(")");
  return inside;
}

ExprPtr Grammar::ReadNamed() {
  Name first = ExpectName("a column");
  if (IsSign("(") && !IsQuoted(first)) return ReadCall(std::move(first));
  const Place place = first.place;
  if (!TakeSign(".")) return Make(place, ColumnRef{{}, std::move(first)});
  Name column = ExpectName("a column of " + first.text);
  if (IsSign(".")) Fail(place, "a column has one table in front of it, and no more names");
  return Make(place, ColumnRef{std::move(first), std::move(column)});
}

bool Grammar::IsQuoted(const Name& name) const {
  const char first = statement_.text[name.place];
  return first == '[' || first == '"';
}

ExprPtr Grammar::ReadCall(Name function) {
  const Place place = function.place;
  Call call{.function = std::move(function), .arguments = {}};
  ExpectSign("(");
  if (TakeSign("*")) {
    call.star = true;
  } else if (!IsSign(")")) {
    call.distinct = TakeKeyword(Keyword::kDistinct);
    if (!call.distinct) TakeKeyword(Keyword::kAll);
    do {
      call.arguments.push_back(ReadValue());
    } while (TakeSign(","));
    CheckColumns(call.arguments.size(), place);
  }
  ExpectSign(")");
  return Make(place, std::move(call));
}

ExprPtr Grammar::ReadCase() {
  const Nesting nesting(*this);
  const Place place = Take().place;
  Case chosen;
  if (!IsKeyword(Keyword::kWhen)) chosen.operand = ReadValue();
  if (!IsKeyword(Keyword::kWhen)) FailExpected("WHEN");
  while (TakeKeyword(Keyword::kWhen)) {
    ExprPtr when = chosen.operand ? ReadValue() : ReadCondition();
    ExpectKeyword(Keyword::kThen, "THEN");
    chosen.whens.push_back({std::move(when), ReadValue()});
  }
  CheckColumns(chosen.whens.size(), place);
  if (TakeKeyword(Keyword::kElse)) chosen.otherwise = ReadValue();
  ExpectKeyword(Keyword::kEnd, chosen.otherwise ? "END" : "WHEN, ELSE or END");
  return Make(place, std::move(chosen));
}

ExprPtr Grammar::ReadCast() {
  const Place place = Take().place;
  ExpectSign("(");
  Cast cast;
  cast.operand = ReadValue();
  ExpectKeyword(Keyword::kAs, "AS of CAST");
  cast.type = ReadTypeName();
  ExpectSign(")");
  return Make(place, std::move(cast));
}

TypeName Grammar::ReadTypeName() {
  TypeName type;
  type.name = ExpectName("a type");
  if (!TakeSign("(")) return type;
  type.size = ReadTypeSize();
  if (TakeSign(",")) type.scale = ReadTypeSize();
  ExpectSign(")");
  return type;
}

int Grammar::ReadTypeSize() {
  int size = 0;
  const Token token = Peek();
  const char* end = token.text.data() + token.text.size();
  const auto read = std::from_chars(token.text.data(), end, size);
  if (token.kind != TokenKind::kNumber || read.ptr != end || read.ec != std::errc()) {
    FailExpected("the size of a type, a whole number");
  }
  Take();
  return size;
}

}  // namespace pstolvane1::sql
