#include "session/data/CriteriaError.h"

#include <algorithm>
#include <string>

#include "session/data/TextFold.h"

namespace pstolvane1 {

namespace {

constexpr std::size_t kShownBefore = 60;
constexpr std::size_t kShownBehind = 60;

// The next place at or behind it where a character begins.
std::size_t CharacterFrom(std::string_view text, std::size_t offset) {
  while (offset < text.size() && (static_cast<unsigned char>(text[offset]) & 0xC0U) == 0x80U) {
    ++offset;
  }
  return offset;
}

std::string Around(std::string_view text, std::size_t offset) {
  std::size_t first = offset > kShownBefore ? CharacterFrom(text, offset - kShownBefore) : 0;
  std::size_t end = CharacterFrom(text, std::min(text.size(), offset + kShownBehind));
  std::string shown(text.substr(first, end - first));
  if (first > 0) shown.insert(0, "...");
  if (end < text.size()) shown += "...";
  return shown;
}

}  // namespace

void CriteriaText::Raise(std::size_t offset, std::string_view problem, ErrorNumber number) const {
  const std::size_t position = CountCharacters(text.substr(0, offset)) + 1;
  throw Error(number, "the " + std::string(noun) + " \"" + Around(text, offset) +
                          "\" cannot be read at position " + std::to_string(position) + ": " +
                          std::string(problem));
}

}  // namespace pstolvane1
