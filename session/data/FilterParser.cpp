#include "session/data/FilterParser.h"

#include <array>
#include <string>
#include <utility>

#include "session/data/FilterDate.h"

namespace pstolvane1 {

using Kind = CriteriaToken::Kind;

void FilterParser::RaiseExpected(std::string_view expected) const {
  lexer_.Text().Raise(lexer_.Now().offset,
                      "expected " + std::string(expected) + ", found " + lexer_.Now().Told());
}

std::uint32_t FilterParser::ReadWhole() {
  const std::uint32_t root = ReadSequence(Node::Kind::kOr, false, 0);
  if (lexer_.Now().kind != Kind::kEnd) RaiseExpected("And, Or or the end");
  return root;
}

std::uint32_t FilterParser::AddNode(Node::Kind kind, std::uint32_t first) {
  filter_.nodes_.push_back({kind, first, RowFilter::kNone});
  return static_cast<std::uint32_t>(filter_.nodes_.size() - 1);
}

// A sequence of one is that one. Below a Not, And and Or change places.
std::uint32_t FilterParser::ReadSequence(Node::Kind kind, bool negated, int depth) {
  const bool is_or = kind == Node::Kind::kOr;
  const std::string_view word = is_or ? "or" : "and";
  const auto read_part = [&] {
    return is_or ? ReadSequence(Node::Kind::kAnd, negated, depth) : ReadTerm(negated, depth);
  };
  const std::uint32_t first = read_part();
  if (!lexer_.Now().IsWord(word)) return first;
  std::uint32_t last = first;
  while (lexer_.Now().IsWord(word)) {
    lexer_.Advance();
    const std::uint32_t part = read_part();
    filter_.nodes_[last].next = part;
    last = part;
  }
  return AddNode(is_or != negated ? Node::Kind::kOr : Node::Kind::kAnd, first);
}

std::uint32_t FilterParser::ReadTerm(bool negated, int depth) {
  const CriteriaToken& token = lexer_.Now();
  if (!token.IsWord("not") && !token.IsSign("(")) return ReadComparison(negated);
  if (depth == RowFilter::kMaxDepth) {
    lexer_.Text().Raise(token.offset,
                        "it is nested more than " + std::to_string(RowFilter::kMaxDepth) + " deep");
  }
  const bool is_not = !token.IsSign("(");
  lexer_.Advance();
  if (is_not) return ReadTerm(!negated, depth + 1);
  const std::uint32_t inner = ReadSequence(Node::Kind::kOr, negated, depth + 1);
  if (!lexer_.Now().IsSign(")")) RaiseExpected("And, Or or \")\"");
  lexer_.Advance();
  return inner;
}

std::uint32_t FilterParser::ReadComparison(bool negated) {
  const CriteriaToken name = lexer_.Now();
  const bool reserved = name.IsWord("and") || name.IsWord("or") || name.IsWord("like");
  if ((name.kind != Kind::kWord && name.kind != Kind::kBracketed) || reserved) {
    RaiseExpected("a column");
  }
  int column = -1;
  if (name.text.find(']') == name.text.npos) {
    column = store_.FindColumn(name.text);
  } else {
    std::string plain;
    AppendUnmarked(plain, name.text, ']');
    column = store_.FindColumn(plain);
  }
  if (column < 0) {
    lexer_.Text().Raise(name.offset, "there is no column " + name.Told(),
                        ErrorNumber::kNoSuchColumn);
  }
  lexer_.Advance();
  bool is_null = false;
  const FilterOperator op = ReadOperator(negated, is_null);
  const std::size_t value_offset = lexer_.Now().offset;
  const FilterValue value = is_null ? FilterValue{FilterValue::Kind::kNull, {}, {}} : ReadValue();
  filter_.comparisons_.emplace_back();
  const FilterProblem problem = Bind(filter_.comparisons_.back(), column, store_.Column(column),
                                     negated ? Opposite(op) : op, negated, value);
  if (problem) lexer_.Text().Raise(is_null ? name.offset : value_offset, *problem);
  return AddNode(Node::Kind::kComparison,
                 static_cast<std::uint32_t>(filter_.comparisons_.size() - 1));
}

FilterOperator FilterParser::ReadOperator(bool& negated, bool& is_null) {
  static constexpr std::array<std::pair<std::string_view, FilterOperator>, 6> kSigns = {
      {{"=", FilterOperator::kEqual},
       {"<>", FilterOperator::kNotEqual},
       {"<", FilterOperator::kLess},
       {">", FilterOperator::kGreater},
       {"<=", FilterOperator::kLessOrEqual},
       {">=", FilterOperator::kGreaterOrEqual}}};
  for (const auto& [sign, op] : kSigns) {
    if (lexer_.Now().IsSign(sign)) {
      lexer_.Advance();
      return op;
    }
  }
  if (lexer_.Now().IsWord("is")) {
    lexer_.Advance();
    is_null = true;
    FilterOperator op = FilterOperator::kEqual;
    if (lexer_.Now().IsWord("not")) {
      lexer_.Advance();
      op = FilterOperator::kNotEqual;
    }
    if (!lexer_.Now().IsWord("null")) RaiseExpected("Null");
    lexer_.Advance();
    return op;
  }
  const bool is_not = lexer_.Now().IsWord("not");
  if (is_not) {
    lexer_.Advance();
    negated = !negated;
  }
  if (!lexer_.Now().IsWord("like")) {
    RaiseExpected(is_not ? "Like" : "a comparison (= <> < > <= >= Like)");
  }
  lexer_.Advance();
  return FilterOperator::kLike;
}

FilterValue FilterParser::ReadValue() {
  const CriteriaToken token = lexer_.Now();
  FilterValue value{FilterValue::Kind::kNull, token.text, {}};
  if (token.kind == Kind::kNumber) {
    value.kind = FilterValue::Kind::kNumber;
  } else if (token.kind == Kind::kText) {
    value.kind = FilterValue::Kind::kText;
    const std::size_t start = filter_.literals_.size();
    AppendUnmarked(filter_.literals_, token.text, '\'');
    value.text = std::string_view(filter_.literals_).substr(start);
  } else if (token.kind == Kind::kDate) {
    value.kind = FilterValue::Kind::kDate;
    const std::optional<Date> date = ReadFilterDate(token.text);
    if (!date) {
      lexer_.Text().Raise(token.offset, token.Told() +
                                            " is not a day of the form #MM/dd/yyyy# or "
                                            "#yyyy-MM-dd#");
    }
    value.date = *date;
  } else if (token.IsWord("true")) {
    value.kind = FilterValue::Kind::kTrue;
  } else if (token.IsWord("false")) {
    value.kind = FilterValue::Kind::kFalse;
  } else if (!token.IsWord("null")) {
    RaiseExpected("a value (a number, 'text', #date#, True, False or Null)");
  }
  lexer_.Advance();
  return value;
}

}  // namespace pstolvane1
