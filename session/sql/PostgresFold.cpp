#include "session/sql/PostgresFold.h"

#include <algorithm>
#include <unicode/locid.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include "session/data/TextFold.h"
#include "session/sql/EngineText.h"

namespace pstolvane1::sql {
namespace {

constexpr UChar32 kLastLetter = 0x1FFFF;
constexpr UChar32 kCapitalSigma = 0x3A3;
constexpr UChar32 kCapitalDottedI = 0x130;
// Characters that no text holds: those for private use of the last plane but one.
constexpr UChar32 kStandIn = 0xF0000;

// Letters, and what stands for each in the same place of another text.
struct Exchange {
  std::string letters;
  std::string others;

  void Add(UChar32 letter, UChar32 other) {
    icu::UnicodeString(letter).toUTF8String(letters);
    icu::UnicodeString(other).toUTF8String(others);
  }
};

// The letters that the server's lower() does not bring to their folded form: those whose small form
// is another, and the two that it does not take alone.
Exchange LettersToFold() {
  Exchange found;
  for (UChar32 letter = 0x80; letter <= kLastLetter; ++letter) {
    const UChar32 folded = FoldedCharacter(letter);
    const bool alone = letter != kCapitalDottedI && letter != kCapitalSigma;
    if (!alone || folded != u_tolower(letter)) found.Add(letter, folded);
  }
  return found;
}

// The letters that the server's upper() turns into several or into another.
struct Kept {
  Exchange away, back;
};
Kept LettersToKeep() {
  Kept found;
  UChar32 stand_in = kStandIn;
  for (UChar32 letter = 0x80; letter <= kLastLetter; ++letter) {
    if (!u_hasBinaryProperty(letter, UCHAR_CHANGES_WHEN_UPPERCASED)) continue;
    const UChar32 large = u_toupper(letter);
    const bool same =
        icu::UnicodeString(letter).toUpper(icu::Locale::getRoot()) == icu::UnicodeString(large);
    if (same) continue;
    found.away.Add(letter, stand_in);
    found.back.Add(stand_in++, large);
  }
  return found;
}

std::string Exchanged(const std::string& value, const Exchange& exchange) {
  return "translate(" + value + ", " + QuotedText(exchange.letters) + ", " +
         QuotedText(exchange.others) + ")";
}

std::string ByRules(std::string_view function, const std::string& value) {
  return std::string(function) + "(" + value + " COLLATE \"und-x-icu\") COLLATE \"C\"";
}

// Most texts are ASCII, of which the server is quick to find out. A value that costs something,
// with more than one call or bracket in it, is not asked for twice.
std::string AsciiFirst(std::string_view function, const std::string& value,
                       const std::string& taken, const std::string& otherwise) {
  const bool query = value.find("(SELECT ") != std::string::npos;
  if (query || std::ranges::count(value, '(') > 1) return otherwise;
  return "CASE WHEN octet_length(" + value + ") = length(" + value + ") THEN " +
         std::string(function) + "(" + taken + " COLLATE \"C\") ELSE " + otherwise + " END";
}

}  // namespace

std::string PostgresFolded(const std::string& value, Characters characters, TrailingBlanks blanks) {
  const std::string taken = blanks == TrailingBlanks::kCut ? "rtrim(" + value + ")" : value;
  if (characters == Characters::kSome) return ByRules("lower", taken);
  static const Exchange kLetters = LettersToFold();
  return AsciiFirst("lower", value, taken, ByRules("lower", Exchanged(taken, kLetters)));
}

std::string PostgresFoldedText(std::string_view text, Characters characters,
                               TrailingBlanks blanks) {
  if (characters == Characters::kSome) {
    return PostgresFolded(QuotedText(text) + "::text", characters, blanks);
  }
  std::size_t size = text.size();
  while (blanks == TrailingBlanks::kCut && size > 0 && text[size - 1] == ' ') --size;
  return QuotedText(Folded(text.substr(0, size))) + "::text COLLATE \"C\"";
}

std::string PostgresSmall(const std::string& value, Characters characters) {
  if (characters == Characters::kSome) return ByRules("lower", value);
  static const Exchange kLetters = [] {
    Exchange exchange;
    for (const UChar32 letter : {kCapitalDottedI, kCapitalSigma}) {
      exchange.Add(letter, u_tolower(letter));
    }
    return exchange;
  }();
  return AsciiFirst("lower", value, value, ByRules("lower", Exchanged(value, kLetters)));
}

std::string PostgresLarge(const std::string& value, Characters characters) {
  if (characters == Characters::kSome) return ByRules("upper", value);
  static const Kept kLetters = LettersToKeep();
  const std::string large = "upper(" + Exchanged(value, kLetters.away) + " COLLATE \"und-x-icu\")";
  return AsciiFirst("upper", value, value, Exchanged(large, kLetters.back) + " COLLATE \"C\"");
}

}  // namespace pstolvane1::sql
