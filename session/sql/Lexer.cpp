#include "session/sql/Lexer.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <iterator>
#include <utility>

#include "session/data/Ascii.h"
#include "session/sql/Refusal.h"

namespace pstolvane1::sql {
namespace {

// In the order of Keyword.
constexpr std::array<std::string_view, 69> kKeywords = {
    "all",    "alter",   "and",      "any",     "as",      "asc",       "begin",    "between",
    "by",     "case",    "cast",     "commit",  "compute", "create",    "cross",    "declare",
    "delete", "desc",    "distinct", "drop",    "else",    "end",       "escape",   "except",
    "exec",   "execute", "exists",   "false",   "for",     "from",      "full",     "grant",
    "group",  "having",  "in",       "inner",   "insert",  "intersect", "into",     "is",
    "join",   "left",    "like",     "merge",   "not",     "null",      "on",       "option",
    "or",     "order",   "outer",    "percent", "revoke",  "right",     "rollback", "select",
    "set",    "some",    "then",     "top",     "true",    "truncate",  "union",    "update",
    "use",    "values",  "when",     "where",   "with"};
static_assert(std::is_sorted(kKeywords.begin(), kKeywords.end()));
static_assert(kKeywords.size() == static_cast<std::size_t>(Keyword::kWith));

// Letters beyond ASCII count as letters.
constexpr bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' ||
         static_cast<unsigned char>(c) >= 0x80U;
}
constexpr bool IsNamePart(char c) { return IsLetter(c) || IsDigit(c) || c == '$'; }
constexpr bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f' || c == '\v';
}
constexpr char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; }

// How many bytes the UTF-8 character at the start of rest takes; 0 where it is none.
std::size_t CharacterBytes(std::string_view rest) {
  const auto byte = [rest](std::size_t i) {
    return i < rest.size() ? static_cast<unsigned char>(rest[i]) : 0U;
  };
  const unsigned first = byte(0);
  if (first < 0x80U) return 1;
  const std::size_t length = first >= 0xF0U ? 4 : first >= 0xE0U ? 3 : 2;
  if (first < 0xC2U || first > 0xF4U) return 0;
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xC0U) != 0x80U) return 0;
  }
  const bool too_long = (first == 0xE0U && byte(1) < 0xA0U) || (first == 0xF0U && byte(1) < 0x90U);
  const bool surrogate = first == 0xEDU && byte(1) > 0x9FU;
  const bool beyond = first == 0xF4U && byte(1) > 0x8FU;
  return too_long || surrogate || beyond ? 0 : length;
}

class Lexer {
 public:
  explicit Lexer(std::string_view text) : text_(text) {}

  std::vector<Token> Run() {
    CheckText();
    for (SkipBlanks(); at_ < text_.size(); SkipBlanks()) {
      if (tokens_.size() == Limits::kTokens) {
        Fail(at_, "the text has more than " + std::to_string(Limits::kTokens) + " words and signs");
      }
      ReadToken();
    }
    Add(TokenKind::kEnd, at_, {});
    return std::move(tokens_);
  }

 private:
  [[noreturn]] void Fail(std::size_t place, std::string_view why) const {
    Refuse(text_, static_cast<Place>(place), why);
  }

  char At(std::size_t place) const { return place < text_.size() ? text_[place] : '\0'; }

  void CheckText() const {
    if (text_.size() > Limits::kTextBytes) {
      Fail(0, "the text is longer than " + std::to_string(Limits::kTextBytes) + " bytes");
    }
    for (std::size_t place = 0; place < text_.size();) {
      const std::size_t bytes = CharacterBytes(text_.substr(place));
      if (bytes == 0) Fail(place, "the text is not UTF-8 here");
      const auto code = static_cast<unsigned char>(text_[place]);
      if ((code < 0x20U && !IsBlank(text_[place])) || code == 0x7FU) {
        Fail(place, "a control character cannot stand in the text");
      }
      place += bytes;
    }
  }

  void SkipBlanks() {
    for (;;) {
      if (IsBlank(At(at_))) {
        ++at_;
      } else if (At(at_) == '-' && At(at_ + 1) == '-') {
        at_ = std::min(text_.find('\n', at_), text_.size());
      } else if (At(at_) == '/' && At(at_ + 1) == '*') {
        SkipComment();
      } else {
        return;
      }
    }
  }

  // Comments nest: /* a /* b */ c */ is one.
  void SkipComment() {
    const std::size_t begin = at_;
    std::size_t open = 0;
    do {
      if (At(at_) == '/' && At(at_ + 1) == '*') {
        ++open;
        at_ += 2;
      } else if (At(at_) == '*' && At(at_ + 1) == '/') {
        --open;
        at_ += 2;
      } else if (at_ >= text_.size()) {
        Fail(begin, "the comment that begins here has no closing */");
      } else {
        ++at_;
      }
    } while (open > 0);
  }

  void Add(TokenKind kind, std::size_t begin, std::string text) {
    Token token;
    token.kind = kind;
    token.place = static_cast<Place>(begin);
    token.end = static_cast<Place>(at_);
    token.text = std::move(text);
    tokens_.push_back(std::move(token));
  }

  void ReadToken() {
    const char c = At(at_);
    if (c == '\'') {
      ReadText(at_);
    } else if ((c == 'n' || c == 'N') && At(at_ + 1) == '\'') {
      const std::size_t begin = at_++;
      ReadText(begin);
    } else if (c == '[') {
      ReadQuotedName(']');
    } else if (c == '"') {
      ReadQuotedName('"');
    } else if (IsDigit(c) || (c == '.' && IsDigit(At(at_ + 1)))) {
      ReadNumber();
    } else if (IsLetter(c)) {
      ReadWord();
    } else {
      ReadSign();
    }
  }

  // From the opening quote at at_ on; gives what is inside and leaves at_ behind the closing one.
  std::string ReadQuoted(char close, std::string_view missing) {
    const std::size_t open = at_;
    std::string inside;
    for (++at_;; ++at_) {
      if (at_ >= text_.size()) Fail(open, missing);
      if (text_[at_] == close) {
        ++at_;
        if (At(at_) != close) return inside;
      }
      inside += text_[at_];
    }
  }

  void ReadText(std::size_t begin) {
    std::string inside = ReadQuoted('\'', "the text that begins here has no closing '");
    Add(TokenKind::kText, begin, std::move(inside));
  }

  void ReadQuotedName(char close) {
    const std::size_t begin = at_;
    std::string inside =
        ReadQuoted(close, "the name that begins here has no closing " + std::string(1, close));
    if (inside.empty()) Fail(begin, "a name cannot be empty");
    CheckName(begin, inside);
    Add(TokenKind::kQuotedName, begin, std::move(inside));
  }

  void CheckName(std::size_t begin, std::string_view name) const {
    if (name.size() > Limits::kNameBytes) {
      Fail(begin, "the name is longer than " + std::to_string(Limits::kNameBytes) + " bytes");
    }
  }

  void ReadWord() {
    const std::size_t begin = at_;
    while (IsNamePart(At(at_))) ++at_;
    std::string word(text_.substr(begin, at_ - begin));
    CheckName(begin, word);
    const Keyword keyword = KeywordOf(word);
    Add(TokenKind::kWord, begin, std::move(word));
    tokens_.back().keyword = keyword;
  }

  void SkipDigits() {
    while (IsDigit(At(at_))) ++at_;
  }

  void ReadNumber() {
    const std::size_t begin = at_;
    auto form = NumberLiteral::Form::kWhole;
    SkipDigits();
    if (At(at_) == '.') {
      form = NumberLiteral::Form::kDecimal;
      ++at_;
      SkipDigits();
    }
    const bool has_sign = At(at_ + 1) == '+' || At(at_ + 1) == '-';
    if (Lower(At(at_)) == 'e' && IsDigit(At(at_ + (has_sign ? 2 : 1)))) {
      form = NumberLiteral::Form::kReal;
      at_ += has_sign ? 2 : 1;
      SkipDigits();
    }
    // "= 4and ..." stands in texts that are put together; only a keyword may follow so closely.
    std::size_t behind = at_;
    while (IsNamePart(At(behind))) ++behind;
    const bool keyword = KeywordOf(text_.substr(at_, behind - at_)) != Keyword::kNone;
    if ((behind > at_ && !keyword) || At(at_) == '.') {
      Fail(begin, "the number " + std::string(text_.substr(begin, at_ - begin)) +
                      " runs into what stands behind it");
    }
    CheckNumber(begin, form);
    Add(TokenKind::kNumber, begin, std::string(text_.substr(begin, at_ - begin)));
    tokens_.back().form = form;
  }

  void CheckNumber(std::size_t begin, NumberLiteral::Form form) const {
    constexpr auto kMostDigits = 38;
    const std::string_view number = text_.substr(begin, at_ - begin);
    double value = 0;
    const auto read = std::from_chars(number.data(), number.data() + number.size(), value);
    if (form == NumberLiteral::Form::kReal && read.ec != std::errc()) {
      Fail(begin, "the number is out of range");
    }
    const auto digits = std::count_if(number.begin(), number.end(), IsDigit);
    if (form != NumberLiteral::Form::kReal && digits > kMostDigits) {
      Fail(begin, "the number has more than 38 digits");
    }
  }

  void ReadSign() {
    static constexpr std::array<std::string_view, 6> kDouble = {"<>", "<=", ">=", "!=", "!<", "!>"};
    static constexpr std::string_view kSingle = "(),.;=<>+-*/%";
    const std::size_t begin = at_;
    const std::string_view two = text_.substr(at_, 2);
    if (std::find(kDouble.begin(), kDouble.end(), two) != kDouble.end()) {
      at_ += 2;
      Add(TokenKind::kSign, begin, std::string(two));
    } else if (kSingle.find(text_[at_]) != std::string_view::npos) {
      at_ += 1;
      Add(TokenKind::kSign, begin, std::string(text_.substr(begin, 1)));
    } else {
      FailSign(text_[at_]);
    }
  }

  [[noreturn]] void FailSign(char sign) const {
    const std::string found = "\"" + std::string(1, sign) + "\"";
    switch (sign) {
      case '#':
        Fail(at_, "\"#\" cannot stand here; a date is written as '03/31/2004'");
      case '@':
        Fail(at_, "\"@\" cannot stand here; variables are not part of the dialect");
      default:
        Fail(at_, found + " is not a sign of the dialect");
    }
  }

  std::string_view text_;
  std::size_t at_ = 0;
  std::vector<Token> tokens_;
};

}  // namespace

std::vector<Token> Tokenize(std::string_view text) { return Lexer(text).Run(); }

Keyword KeywordOf(std::string_view word) {
  std::string lower(word);
  std::transform(lower.begin(), lower.end(), lower.begin(), Lower);
  const auto found = std::lower_bound(kKeywords.begin(), kKeywords.end(), lower);
  if (found == kKeywords.end() || *found != lower) return Keyword::kNone;
  return static_cast<Keyword>(std::distance(kKeywords.begin(), found) + 1);
}

bool IsBareName(std::string_view word) {
  return !word.empty() && IsLetter(word[0]) && std::all_of(word.begin(), word.end(), IsNamePart) &&
         KeywordOf(word) == Keyword::kNone;
}

}  // namespace pstolvane1::sql
