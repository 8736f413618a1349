// The words and signs of the texts of Filter, Find and Sort.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "session/data/CriteriaError.h"

namespace pstolvane1 {

struct CriteriaToken {
  enum class Kind { kWord, kBracketed, kNumber, kText, kDate, kSign, kEnd };
  Kind kind = Kind::kEnd;
  // A word, a number or a sign as it stands; of the others what lies between the marks, in which a
  // closing mark stands twice where it belongs to the value.
  std::string_view text;
  std::size_t offset = 0;  // in the text that is read

  [[nodiscard]] bool IsSign(std::string_view sign) const {
    return kind == Kind::kSign && text == sign;
  }
  // A word of the language, in any case; a name in brackets never is one.
  [[nodiscard]] bool IsWord(std::string_view word) const;
  // How a message names it.
  [[nodiscard]] std::string Told() const;
};

// Words are letters, digits, "_", ".", "$" and everything beyond ASCII, and do not begin with a
// digit. Signs are = <> < > <= >= ( ) and the comma; "!=" is read as "<>".
class CriteriaLexer {
 public:
  explicit CriteriaLexer(CriteriaText text) : text_(text) { Advance(); }

  [[nodiscard]] const CriteriaToken& Now() const { return now_; }
  // Error 3001 for a sign that criteria do not have.
  void Advance();
  [[nodiscard]] const CriteriaText& Text() const { return text_; }

 private:
  void TakeMarked(CriteriaToken::Kind kind, char closing, std::string_view what);
  void Take(CriteriaToken::Kind kind, std::size_t length);

  CriteriaText text_;
  std::size_t at_ = 0;
  CriteriaToken now_;
};

// The value between two marks, with each doubled closing mark made one, put behind the text.
void AppendUnmarked(std::string& text, std::string_view marked, char closing);

}  // namespace pstolvane1
