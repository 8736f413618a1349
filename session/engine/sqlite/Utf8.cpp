#include "session/engine/sqlite/Utf8.h"

#include <cstdint>
#include <cstring>

#include "session/data/TextFold.h"

namespace pstolvane1::sqlite {
namespace {

unsigned ByteAt(std::string_view text, std::size_t at) {
  return static_cast<unsigned char>(text[at]);
}

bool Continues(std::string_view text, std::size_t at) {
  return (ByteAt(text, at) & 0xc0U) == 0x80U;
}

// How many bytes a character has whose first byte this is, and the least character that needs them.
struct Lead {
  std::size_t size;
  unsigned bits;
  char32_t least;
};

Lead LeadOf(unsigned first) {
  if (first >= 0xc2U && first < 0xe0U) return {2, first & 0x1fU, 0x80};
  if (first >= 0xe0U && first < 0xf0U) return {3, first & 0x0fU, 0x800};
  if (first >= 0xf0U && first < 0xf5U) return {4, first & 0x07U, 0x10000};
  return {0, 0, 0};
}

}  // namespace

char32_t TakeCharacter(std::string_view& text) {
  const unsigned first = ByteAt(text, 0);
  if (first < 0x80U) {
    text.remove_prefix(1);
    return first;
  }
  const Lead lead = LeadOf(first);
  bool valid = lead.size != 0 && text.size() >= lead.size;
  char32_t character = lead.bits;
  for (std::size_t i = 1; valid && i < lead.size; ++i) {
    valid = Continues(text, i);
    character = (character << 6U) | (ByteAt(text, i) & 0x3fU);
  }
  valid = valid && character >= lead.least && character < kStrayByte &&
          (character < 0xd800 || character > 0xdfff);
  text.remove_prefix(valid ? lead.size : 1);
  return valid ? character : kStrayByte + first;
}

char32_t TakeFolded(std::string_view& text) {
  const char32_t character = TakeCharacter(text);
  if (character < 0x80) {
    return character >= U'A' && character <= U'Z' ? character + (U'a' - U'A') : character;
  }
  if (character >= kStrayByte) return character;
  return static_cast<char32_t>(FoldedCharacter(static_cast<std::int32_t>(character)));
}

bool IsUtf8(std::string_view text) noexcept {
  while (text.size() >= sizeof(std::uint64_t)) {
    std::uint64_t word = 0;
    std::memcpy(&word, text.data(), sizeof word);
    if ((word & 0x8080808080808080ULL) != 0) break;
    text.remove_prefix(sizeof word);
  }
  while (!text.empty()) {
    if (TakeCharacter(text) >= kStrayByte) return false;
  }
  return true;
}

std::string Repaired(std::string_view text) {
  std::string repaired;
  while (!text.empty()) {
    const char32_t character = TakeCharacter(text);
    Append(repaired, character >= kStrayByte ? 0xfffd : character);
  }
  return repaired;
}

void Append(std::string& text, char32_t character) {
  const auto put = [&](char32_t byte) {
    text += static_cast<char>(static_cast<unsigned char>(byte));
  };
  if (character < 0x80) return put(character);
  if (character < 0x800) {
    put(0xc0 | (character >> 6));
  } else {
    if (character < 0x10000) {
      put(0xe0 | (character >> 12));
    } else {
      put(0xf0 | (character >> 18));
      put(0x80 | ((character >> 12) & 0x3f));
    }
    put(0x80 | ((character >> 6) & 0x3f));
  }
  put(0x80 | (character & 0x3f));
}

}  // namespace pstolvane1::sqlite
