#include "session/sql/Grammar.h"

#include <algorithm>
#include <array>

#include "session/sql/Refusal.h"

namespace pstolvane1::sql {
namespace {

std::vector<std::size_t> FindClosings(const std::vector<Token>& tokens) {
  std::vector<std::size_t> closings(tokens.size(), tokens.size() - 1);
  std::vector<std::size_t> open;
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    if (tokens[i].kind != TokenKind::kSign) continue;
    if (tokens[i].text == "(") {
      open.push_back(i);
    } else if (tokens[i].text == ")" && !open.empty()) {
      closings[open.back()] = i;
      open.pop_back();
    }
  }
  return closings;
}

}  // namespace

Grammar::Grammar(std::string_view text)
    : statement_{.text = std::string(text), .query = {}},
      tokens_(Tokenize(text)),
      closing_(FindClosings(tokens_)),
      condition_at_(tokens_.size()) {}

Grammar::Nesting::Nesting(Grammar& grammar) : grammar_(grammar) {
  if (grammar.nesting_ == Limits::kNesting) {
    grammar.Fail(grammar.Peek().place, "parentheses, subqueries, NOT and signs nest more than " +
                                           std::to_string(Limits::kNesting) + " levels deep");
  }
  ++grammar.nesting_;
}

Statement Grammar::Read() && {
  if (!IsKeyword(Keyword::kSelect) && !(IsSign("(") && EnclosesQuery())) {
    Fail(Peek().place, "expected SELECT, found " + Found() +
                           "; the text must be one SELECT, and nothing that writes is accepted");
  }
  statement_.query = ReadQuery(Where::kStatement);
  ReadEnd();
  return std::move(statement_);
}

const Token& Grammar::Peek(std::size_t ahead) const {
  return tokens_[std::min(at_ + ahead, tokens_.size() - 1)];
}

bool Grammar::IsKeyword(Keyword keyword, std::size_t ahead) const {
  return Peek(ahead).keyword == keyword;
}

bool Grammar::IsSign(std::string_view sign, std::size_t ahead) const {
  return Peek(ahead).kind == TokenKind::kSign && Peek(ahead).text == sign;
}

Token Grammar::Take() {
  Token token = Peek();
  if (at_ + 1 < tokens_.size()) ++at_;
  return token;
}

bool Grammar::TakeKeyword(Keyword keyword) {
  if (!IsKeyword(keyword)) return false;
  ++at_;
  return true;
}

bool Grammar::TakeSign(std::string_view sign) {
  if (!IsSign(sign)) return false;
  ++at_;
  return true;
}

void Grammar::ExpectKeyword(Keyword keyword, std::string_view spelled) {
  if (!TakeKeyword(keyword)) FailExpected(spelled);
}

void Grammar::ExpectSign(std::string_view sign) {
  if (!TakeSign(sign)) FailExpected("\"" + std::string(sign) + "\"");
}

bool Grammar::IsName() const {
  return Peek().kind == TokenKind::kQuotedName ||
         (Peek().kind == TokenKind::kWord && Peek().keyword == Keyword::kNone);
}

Name Grammar::ExpectName(std::string_view what) {
  if (!IsName()) {
    const bool reserved = Peek().kind == TokenKind::kWord;
    FailExpected(what, reserved ? ", a word of the language; as a name it stands in brackets" : "");
  }
  Token token = Take();
  return {std::move(token.text), token.place};
}

std::string Grammar::Found() const {
  constexpr std::size_t kShown = 40;
  const Token& token = Peek();
  if (token.kind == TokenKind::kEnd) return "the end of the text";
  std::string_view written =
      std::string_view(statement_.text).substr(token.place, token.end - token.place);
  if (written.size() <= kShown) return "\"" + std::string(written) + "\"";
  written = written.substr(0, kShown);
  while ((static_cast<unsigned char>(written.back()) & 0xC0U) == 0x80U) written.remove_suffix(1);
  if (static_cast<unsigned char>(written.back()) >= 0xC0U) written.remove_suffix(1);
  return "\"" + std::string(written) + "...\"";
}

void Grammar::Fail(Place place, std::string_view why) const { Refuse(statement_.text, place, why); }

void Grammar::FailExpected(std::string_view what, std::string_view remark) const {
  Fail(Peek().place, "expected " + std::string(what) + ", found " + Found() + std::string(remark));
}

void Grammar::FailBehindQuery(std::string_view closing) const {
  switch (Peek().keyword) {
    case Keyword::kInto:
      Fail(Peek().place, "SELECT ... INTO would write; only a SELECT that reads is accepted");
    case Keyword::kExcept:
    case Keyword::kIntersect:
    case Keyword::kWith:
    case Keyword::kFor:
    case Keyword::kOption:
    case Keyword::kCompute:
      Fail(Peek().place, Found() + " is not part of the dialect");
    case Keyword::kSelect:
    case Keyword::kInsert:
    case Keyword::kUpdate:
    case Keyword::kDelete:
    case Keyword::kDrop:
    case Keyword::kExec:
    case Keyword::kExecute:
    case Keyword::kCreate:
    case Keyword::kAlter:
    case Keyword::kTruncate:
    case Keyword::kDeclare:
    case Keyword::kMerge:
      Fail(Peek().place,
           "a second statement begins here with " + Found() + "; the text must be one SELECT");
    default:
      break;
  }
  static constexpr std::array<std::string_view, 6> kClauses = {"FROM",   "WHERE", "GROUP BY",
                                                               "HAVING", "UNION", "ORDER BY"};
  std::string expected;
  for (std::size_t i = clause_; i < kClauses.size(); ++i) {
    expected += std::string(kClauses[i]) + (i + 1 < kClauses.size() ? ", " : " or ");
  }
  FailExpected(expected + std::string(closing));
}

// "(((select ...) union ...))" does, "((select ...) as a inner join b on ...)" and
// "((select ...) + 1)" do not: what stands behind each inner parenthesis tells.
bool Grammar::EnclosesQuery() const {
  std::size_t open = at_;
  while (tokens_[open].kind == TokenKind::kSign && tokens_[open].text == "(") ++open;
  if (tokens_[open].keyword != Keyword::kSelect) return false;
  for (--open; open > at_; --open) {
    const Token& behind = tokens_[std::min(closing_[open] + 1, tokens_.size() - 1)];
    const bool closes = behind.kind == TokenKind::kSign && behind.text == ")";
    if (!closes && behind.keyword != Keyword::kUnion && behind.keyword != Keyword::kOrder) {
      return false;
    }
  }
  return true;
}

void Grammar::CheckColumns(std::size_t count, Place place) const {
  if (count > Limits::kColumns) {
    Fail(place, "a list has more than " + std::to_string(Limits::kColumns) + " members");
  }
}

}  // namespace pstolvane1::sql
