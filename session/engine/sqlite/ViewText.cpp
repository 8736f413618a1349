#include "session/engine/sqlite/ViewText.h"

#include <algorithm>

#include "session/sql/Names.h"

namespace pstolvane1::sqlite {
namespace {

bool IsNameCharacter(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' ||
         c == '$' || (static_cast<unsigned char>(c) & 0x80U) != 0;
}

// Where the quoted text, comment or parenthesis that begins there has ended; the place itself when
// nothing of that kind begins.
std::size_t BehindQuoted(std::string_view text, std::size_t at) {
  const auto behind = [&](std::string_view end, std::size_t from) {
    const std::size_t found = text.find(end, from);
    return found == text.npos ? text.size() : found + end.size();
  };
  switch (text[at]) {
    case '\'':
    case '"':
    case '`':
      return behind(text.substr(at, 1), at + 1);
    case '[':
      return behind("]", at + 1);
    case '(':
      return behind(")", at + 1);
    case '-':
      return text.substr(at, 2) == "--" ? behind("\n", at) : at;
    case '/':
      return text.substr(at, 2) == "/*" ? behind("*/", at + 2) : at;
    default:
      return at;
  }
}

// Words, signs, and whole parenthesised or quoted pieces, one after another.
class Pieces {
 public:
  explicit Pieces(std::string_view text) : text_(text) {}

  // The piece at hand; empty at the end.
  [[nodiscard]] std::string_view Peek() {
    SkipBlanks();
    return text_.substr(at_, BehindPiece(at_) - at_);
  }
  std::string_view Take() {
    const std::string_view piece = Peek();
    at_ += piece.size();
    return piece;
  }
  bool TakeWord(std::string_view word) {
    if (!sql::SameName(Peek(), word)) return false;
    Take();
    return true;
  }
  [[nodiscard]] std::string_view Rest() {
    SkipBlanks();
    return text_.substr(at_);
  }
  [[nodiscard]] std::size_t At() const { return at_; }

 private:
  void SkipBlanks() {
    while (at_ < text_.size()) {
      const bool comment = text_.substr(at_, 2) == "--" || text_.substr(at_, 2) == "/*";
      const bool blank = std::string_view(" \t\r\n").find(text_[at_]) != std::string_view::npos;
      if (!comment && !blank) return;
      at_ = comment ? BehindQuoted(text_, at_) : at_ + 1;
    }
  }
  [[nodiscard]] std::size_t BehindPiece(std::size_t at) const {
    if (at >= text_.size()) return at;
    if (text_[at] == '(') return BehindParenthesis(at);
    if (const std::size_t behind = BehindQuoted(text_, at); behind != at) return behind;
    std::size_t end = at;
    while (end < text_.size() && IsNameCharacter(text_[end])) ++end;
    return std::max(end, at + 1);
  }
  [[nodiscard]] std::size_t BehindParenthesis(std::size_t at) const {
    int depth = 0;
    while (at < text_.size()) {
      const char c = text_[at];
      const std::size_t behind = c == '(' ? at : BehindQuoted(text_, at);
      if (c == '(') ++depth;
      if (c == ')' && --depth == 0) return at + 1;
      at = std::max(behind, at + 1);
    }
    return at;
  }

  std::string_view text_;
  std::size_t at_ = 0;
};

std::string_view Inside(std::string_view enclosed) {
  return enclosed.size() < 2 ? std::string_view{} : enclosed.substr(1, enclosed.size() - 2);
}

std::string_view Unquoted(std::string_view name) {
  const bool quoted = !name.empty() && std::string_view("\"[`'").find(name[0]) != name.npos;
  return quoted ? Inside(name) : name;
}

std::string_view BeforeUnion(std::string_view select) {
  Pieces pieces(select);
  while (!pieces.Peek().empty()) {
    const std::size_t before = pieces.At();
    if (pieces.TakeWord("union")) return select.substr(0, before);
    pieces.Take();
  }
  return select;
}

std::vector<std::string_view> NamesIn(std::string_view list) {
  std::vector<std::string_view> names;
  Pieces pieces(list);
  while (!pieces.Peek().empty()) {
    names.push_back(Unquoted(pieces.Take()));
    pieces.TakeWord(",");
  }
  return names;
}

}  // namespace

std::string_view BodyOfView(std::string_view create) {
  for (std::size_t at = 0; at < create.size();) {
    if (const std::size_t behind = BehindQuoted(create, at); behind != at) {
      at = behind;
      continue;
    }
    std::size_t end = at;
    while (end < create.size() && IsNameCharacter(create[end])) ++end;
    if (end - at == 2 && (create[at] | 0x20) == 'a' && (create[at + 1] | 0x20) == 's') {
      return create.substr(end);
    }
    at = std::max(end, at + 1);
  }
  return {};
}

WithClause ReadWith(std::string_view body) {
  WithClause with;
  Pieces pieces(body);
  if (!pieces.TakeWord("with")) return {};
  const bool recursive = pieces.TakeWord("recursive");
  do {
    WithClause::Table table{.name = Unquoted(pieces.Take()), .columns = {}, .select = {}};
    if (pieces.Peek().starts_with("(")) table.columns = NamesIn(Inside(pieces.Take()));
    if (!pieces.TakeWord("as")) return {};
    pieces.TakeWord("not");
    pieces.TakeWord("materialized");
    if (!pieces.Peek().starts_with("(")) return {};
    table.select = Inside(pieces.Take());
    if (recursive) table.select = BeforeUnion(table.select);
    with.tables.push_back(std::move(table));
  } while (pieces.TakeWord(","));
  with.rest = pieces.Rest();
  return with;
}

}  // namespace pstolvane1::sqlite
