#include "session/data/CriteriaLexer.h"

#include "session/data/Ascii.h"
#include "session/data/DecimalText.h"
#include "session/data/TextFold.h"

namespace pstolvane1 {

namespace {

constexpr bool BeginsWord(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' ||
         static_cast<unsigned char>(c) >= 0x80;
}

constexpr bool ContinuesWord(char c) { return BeginsWord(c) || IsDigit(c) || c == '.' || c == '$'; }

constexpr bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

}  // namespace

bool CriteriaToken::IsWord(std::string_view word) const {
  return kind == Kind::kWord && text.size() == word.size() && EqualFolded(text, word);
}

std::string CriteriaToken::Told() const {
  switch (kind) {
    case Kind::kEnd:
      return "the end";
    case Kind::kText:
      return "the text '" + std::string(text) + "'";
    case Kind::kDate:
      return "the date #" + std::string(text) + "#";
    case Kind::kBracketed:
      return "[" + std::string(text) + "]";
    case Kind::kNumber:
      return "the number " + std::string(text);
    case Kind::kWord:
    case Kind::kSign:
      break;
  }
  return "\"" + std::string(text) + "\"";
}

void CriteriaLexer::Take(CriteriaToken::Kind kind, std::size_t length) {
  now_ = {kind, text_.text.substr(at_, length), at_};
  at_ += length;
}

void CriteriaLexer::TakeMarked(CriteriaToken::Kind kind, char closing, std::string_view what) {
  const std::string_view text = text_.text;
  std::size_t end = text.find(closing, at_ + 1);
  // A doubled mark belongs to the value.
  while (end != text.npos && closing != '#' && text.substr(end + 1).starts_with(closing)) {
    end = text.find(closing, end + 2);
  }
  if (end == text.npos) {
    text_.Raise(at_, std::string(what) + " that begins here has no end; expected " + closing);
  }
  now_ = {kind, text.substr(at_ + 1, end - at_ - 1), at_};
  at_ = end + 1;
}

void CriteriaLexer::Advance() {
  using Kind = CriteriaToken::Kind;
  const std::string_view text = text_.text;
  while (at_ < text.size() && IsBlank(text[at_])) ++at_;
  if (at_ == text.size()) return Take(Kind::kEnd, 0);
  const char first = text[at_];
  const char second = at_ + 1 < text.size() ? text[at_ + 1] : '\0';
  if (BeginsWord(first)) {
    std::size_t end = at_ + 1;
    while (end < text.size() && ContinuesWord(text[end])) ++end;
    return Take(Kind::kWord, end - at_);
  }
  switch (first) {
    case '=':
    case '(':
    case ')':
    case ',':
      return Take(Kind::kSign, 1);
    case '<':
      return Take(Kind::kSign, second == '=' || second == '>' ? 2 : 1);
    case '>':
      return Take(Kind::kSign, second == '=' ? 2 : 1);
    case '!':
      if (second != '=') break;
      Take(Kind::kSign, 2);
      now_.text = "<>";
      return;
    case '[':
      return TakeMarked(Kind::kBracketed, ']', "the name");
    case '\'':
      return TakeMarked(Kind::kText, '\'', "the text");
    case '#':
      return TakeMarked(Kind::kDate, '#', "the date");
    default:
      break;
  }
  const std::size_t length = DecimalText::Length(text.substr(at_));
  if (length == 0) {
    std::size_t end = at_ + 1;
    while (end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) ++end;
    text_.Raise(
        at_, "the sign \"" + std::string(text.substr(at_, end - at_)) + "\" has no meaning here");
  }
  Take(Kind::kNumber, length);
  if (at_ < text.size() && ContinuesWord(text[at_])) {
    text_.Raise(at_, "expected a blank or a sign behind the number " + std::string(now_.text));
  }
}

void AppendUnmarked(std::string& text, std::string_view marked, char closing) {
  for (std::size_t i = 0; i < marked.size(); ++i) {
    text.push_back(marked[i]);
    if (marked[i] == closing) ++i;
  }
}

}  // namespace pstolvane1
