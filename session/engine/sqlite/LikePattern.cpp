#include "session/engine/sqlite/LikePattern.h"

#include <algorithm>

#include "session/data/TextFold.h"
#include "session/engine/sqlite/Utf8.h"

namespace pstolvane1::sqlite {
namespace {

bool IsAscii(char byte) { return static_cast<unsigned char>(byte) < 0x80; }

char32_t FoldedAscii(char byte) {
  return static_cast<unsigned char>(byte >= 'A' && byte <= 'Z' ? byte | 0x20 : byte);
}

// The next character, folded; most are of one byte.
char32_t Take(std::string_view& text) {
  const char byte = text.front();
  if (!IsAscii(byte)) return TakeFolded(text);
  text.remove_prefix(1);
  return FoldedAscii(byte);
}

}  // namespace

LikePattern::LikePattern(std::string_view pattern, std::optional<char32_t> escape) {
  // The escape character is compared before case is taken away: \ or x, never X for x.
  std::string_view rest = pattern;
  const auto take = [&] { return TakeFolded(rest); };
  while (!rest.empty()) {
    std::string_view ahead = rest;
    const char32_t raw = TakeCharacter(ahead);
    if (escape && raw == *escape && !ahead.empty()) {
      rest = ahead;
      parts_.push_back({Part::Kind::kCharacter, take()});
      continue;
    }
    const char32_t character = take();
    if (character == U'%') {
      if (parts_.empty() || parts_.back().kind != Part::Kind::kRun) {
        parts_.push_back({Part::Kind::kRun});
      }
    } else if (character == U'_') {
      parts_.push_back({Part::Kind::kAny});
    } else if (character != U'[') {
      parts_.push_back({Part::Kind::kCharacter, character});
    } else {
      Part part{Part::Kind::kOneOf};
      bool closed = false;
      bool first = true;
      while (!rest.empty() && !closed) {
        const char32_t low = take();
        if (low == U']') {
          closed = true;
        } else if (low == U'^' && first) {
          part.kind = Part::Kind::kNoneOf;
        } else {
          char32_t high = low;
          if (rest.size() > 1 && rest[0] == '-' && rest[1] != ']') {
            rest.remove_prefix(1);
            high = take();
          }
          part.ranges.emplace_back(low, high);
        }
        first = false;
      }
      if (!closed) part.kind = Part::Kind::kNothing;
      parts_.push_back(std::move(part));
    }
  }
}

bool LikePattern::FitsOne(const Part& part, char32_t character) {
  switch (part.kind) {
    case Part::Kind::kCharacter:
      return part.character == character;
    case Part::Kind::kAny:
      return true;
    case Part::Kind::kOneOf:
    case Part::Kind::kNoneOf: {
      const bool found = std::any_of(
          part.ranges.begin(), part.ranges.end(),
          [&](const auto& range) { return range.first <= character && character <= range.second; });
      return found == (part.kind == Part::Kind::kOneOf);
    }
    case Part::Kind::kRun:
    case Part::Kind::kNothing:
      return false;
  }
  return false;
}

void LikePattern::PassOver(std::size_t part, std::string_view& text) const {
  if (part == parts_.size() || parts_[part].kind != Part::Kind::kCharacter) return;
  const char32_t character = parts_[part].character;
  std::size_t at = 0;
  while (at < text.size() && IsAscii(text[at]) && FoldedAscii(text[at]) != character) ++at;
  text.remove_prefix(at);
}

// Goes back to the last % only, which is enough: an earlier one could not do better.
bool LikePattern::Fits(std::string_view text) const {
  std::size_t at = 0;
  std::size_t run = parts_.size();  // the part behind the last %
  bool has_run = false;
  std::string_view run_text;
  while (true) {
    if (at < parts_.size() && parts_[at].kind == Part::Kind::kRun) {
      run = ++at;
      has_run = true;
      PassOver(run, text);
      run_text = text;
      continue;
    }
    if (at == parts_.size() && text.find_first_not_of(' ') == std::string_view::npos) return true;
    if (at < parts_.size() && !text.empty()) {
      std::string_view ahead = text;
      if (FitsOne(parts_[at], Take(ahead))) {
        text = ahead;
        ++at;
        continue;
      }
    }
    if (!has_run || run_text.empty()) return false;
    TakeCharacter(run_text);
    PassOver(run, run_text);
    text = run_text;
    at = run;
  }
}

}  // namespace pstolvane1::sqlite
