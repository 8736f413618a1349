#include "session/data/TextFold.h"

#include <algorithm>
#include <cstring>
#include <unicode/uchar.h>
#include <unicode/utf8.h>

namespace pstolvane1 {

namespace {

// Behind every character of Unicode.
constexpr std::int32_t kInvalidByte = 0x110000;

constexpr unsigned char SmallAscii(unsigned char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<unsigned char>(c | 0x20) : c;
}

// The characters of a text, folded, one by one.
class Characters {
 public:
  explicit Characters(std::string_view text) : text_(text) {}

  [[nodiscard]] bool AtEnd() const { return at_ == text_.size(); }
  [[nodiscard]] unsigned char Byte() const { return static_cast<unsigned char>(text_[at_]); }
  void SkipByte() { ++at_; }

  std::int32_t Next() {
    const unsigned char first = Byte();
    if (first < 0x80) {
      ++at_;
      return SmallAscii(first);
    }
    const std::size_t start = at_;
    const auto* bytes = static_cast<const std::uint8_t*>(static_cast<const void*>(text_.data()));
    UChar32 c = 0;
    U8_NEXT(bytes, at_, text_.size(), c);
    if (c < 0) {
      at_ = start + 1;
      return kInvalidByte + first;
    }
    return FoldedCharacter(c);
  }

 private:
  std::string_view text_;
  std::size_t at_ = 0;
};

std::string_view WithoutTrailingBlanks(std::string_view text) {
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return text;
}

constexpr std::uint64_t kBeyondAscii = 0x8080808080808080U;

// Eight bytes at a time; bytes beyond ASCII stay as they are.
std::uint64_t SmallAscii(std::uint64_t word) {
  constexpr std::uint64_t kOnes = 0x0101010101010101U;
  const std::uint64_t low = word & ~kBeyondAscii;
  const std::uint64_t from_a = low + kOnes * (0x80 - 'A');
  const std::uint64_t behind_z = low + kOnes * (0x7F - 'Z');
  const std::uint64_t large = (from_a ^ behind_z) & ~word & kBeyondAscii;
  return word | (large >> 2);
}

struct BytesHash {
  std::uint64_t hash;
  bool ascii;
};

BytesHash HashBytes(std::string_view text) {
  std::uint64_t hash = text.size() * 0x9E3779B97F4A7C15U;
  std::uint64_t seen = 0;
  for (std::size_t i = 0; i < text.size(); i += sizeof(std::uint64_t)) {
    std::uint64_t word = 0;
    std::memcpy(&word, text.data() + i, std::min(sizeof word, text.size() - i));
    seen |= word;
    hash = (hash ^ SmallAscii(word)) * 0xD6E8FEB86659FD93U;
    hash ^= hash >> 32;
  }
  return {hash, (seen & kBeyondAscii) == 0};
}

void AppendUtf8(std::string& text, std::int32_t c) {
  const auto put = [&](std::int32_t byte) { text.push_back(static_cast<char>(byte)); };
  if (c >= kInvalidByte) {
    put(0xFF);
    put(c - kInvalidByte);
  } else if (c < 0x80) {
    put(c);
  } else if (c < 0x800) {
    put(0xC0 | (c >> 6));
    put(0x80 | (c & 0x3F));
  } else if (c < 0x10000) {
    put(0xE0 | (c >> 12));
    put(0x80 | ((c >> 6) & 0x3F));
    put(0x80 | (c & 0x3F));
  } else {
    put(0xF0 | (c >> 18));
    put(0x80 | ((c >> 12) & 0x3F));
    put(0x80 | ((c >> 6) & 0x3F));
    put(0x80 | (c & 0x3F));
  }
}

}  // namespace

// The folding leaves the capital İ alone, which has no other small form than i.
std::int32_t FoldedCharacter(std::int32_t character) {
  return u_tolower(u_foldCase(character, U_FOLD_CASE_DEFAULT));
}

int CompareFolded(std::string_view a, std::string_view b) {
  Characters left(a);
  Characters right(b);
  while (!left.AtEnd() && !right.AtEnd()) {
    const unsigned char x = left.Byte();
    const unsigned char y = right.Byte();
    if (x == y && x < 0x80) {
      left.SkipByte();
      right.SkipByte();
      continue;
    }
    const std::int32_t c = left.Next();
    const std::int32_t d = right.Next();
    if (c != d) return c < d ? -1 : 1;
  }
  if (left.AtEnd()) return right.AtEnd() ? 0 : -1;
  return 1;
}

int CompareFoldedIgnoringTrailingBlanks(std::string_view a, std::string_view b) {
  return CompareFolded(WithoutTrailingBlanks(a), WithoutTrailingBlanks(b));
}

bool EqualFolded(std::string_view a, std::string_view b) {
  return a == b || CompareFolded(a, b) == 0;
}

std::uint64_t HashFolded(std::string_view text) {
  const BytesHash hash = HashBytes(text);
  return hash.ascii ? hash.hash : HashBytes(Folded(text)).hash;
}

std::string Folded(std::string_view text) {
  std::string folded;
  folded.reserve(text.size());
  for (Characters rest(text); !rest.AtEnd();) AppendUtf8(folded, rest.Next());
  return folded;
}

bool LikeFolded(std::string_view text, std::string_view pattern) {
  const auto is_any = [](unsigned char c) { return c == '*' || c == '%'; };
  Characters at(text);
  Characters want(pattern);
  // Where to go on after the last "any run": behind it in the pattern, one character on in the
  // text.
  Characters retry_at(text);
  Characters retry_want(pattern);
  bool can_retry = false;
  while (!at.AtEnd()) {
    if (!want.AtEnd() && is_any(want.Byte())) {
      want.SkipByte();
      retry_at = at;
      retry_want = want;
      can_retry = true;
      continue;
    }
    if (!want.AtEnd() && at.Next() == want.Next()) continue;
    if (!can_retry) return false;
    retry_at.Next();
    at = retry_at;
    want = retry_want;
  }
  while (!want.AtEnd() && is_any(want.Byte())) want.SkipByte();
  return want.AtEnd();
}

std::size_t CountCharacters(std::string_view text) {
  std::size_t count = 0;
  for (Characters rest(text); !rest.AtEnd(); ++count) rest.Next();
  return count;
}

}  // namespace pstolvane1
