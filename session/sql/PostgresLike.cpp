#include "session/sql/PostgresLike.h"

#include <algorithm>
#include <vector>

#include "session/data/TextFold.h"

namespace pstolvane1::sql {
namespace {

struct Part {
  enum class Kind { kCharacter, kAny, kRun, kClass, kNever } kind;
  std::string text;  // the character, or the inside of the class
};

bool IsMark(std::string_view character) {
  constexpr std::string_view kMarks = "\\^$.|?*+(){}[]-";
  return character.size() == 1 && kMarks.find(character[0]) != std::string_view::npos;
}

std::string Escaped(std::string_view character) {
  return (IsMark(character) ? "\\" : "") + std::string(character);
}

class Reader {
 public:
  Reader(std::string_view pattern, std::string_view escape) : rest_(pattern), escape_(escape) {}

  std::vector<Part> Parts() {
    std::vector<Part> parts;
    while (!rest_.empty()) {
      const std::string_view character = Take();
      if (!escape_.empty() && character == escape_ && !rest_.empty()) {
        parts.push_back({Part::Kind::kCharacter, std::string(Take())});
      } else if (character == "%") {
        parts.push_back({Part::Kind::kRun, ""});
      } else if (character == "_") {
        parts.push_back({Part::Kind::kAny, ""});
      } else if (character == "[") {
        parts.push_back(Class());
      } else {
        parts.push_back({Part::Kind::kCharacter, std::string(character)});
      }
    }
    return parts;
  }

 private:
  std::string_view Take() {
    const std::string_view taken = rest_.substr(0, FirstCharacter(rest_));
    rest_.remove_prefix(taken.size());
    return taken;
  }

  Part Class() {
    bool negated = false;
    std::string inside;
    for (bool first = true; !rest_.empty(); first = false) {
      const std::string_view low = Take();
      if (low == "]") {
        // None of nothing is any character.
        if (inside.empty()) return {negated ? Part::Kind::kAny : Part::Kind::kNever, ""};
        return {Part::Kind::kClass, (negated ? "^" : "") + inside};
      }
      if (low == "^" && first) {
        negated = true;
      } else if (rest_.size() > 1 && rest_[0] == '-' && rest_[1] != ']') {
        Take();
        const std::string_view high = Take();
        // A range that runs backwards holds nothing, and the server refuses it.
        if (CompareFolded(low, high) <= 0) inside += Escaped(low) + "-" + Escaped(high);
      } else {
        inside += Escaped(low);
      }
    }
    return {Part::Kind::kNever, ""};
  }

  std::string_view rest_;
  std::string_view escape_;
};

std::string LikeOf(const std::vector<Part>& parts) {
  std::string pattern;
  for (const Part& part : parts) {
    if (part.kind == Part::Kind::kRun) {
      pattern += '%';
    } else if (part.kind == Part::Kind::kAny) {
      pattern += '_';
    } else {
      const bool own = part.text == "%" || part.text == "_" || part.text == "\\";
      pattern += (own ? "\\" : "") + part.text;
    }
  }
  return pattern;
}

std::string RegularOf(const std::vector<Part>& parts) {
  std::string pattern = "^";
  for (const Part& part : parts) {
    switch (part.kind) {
      case Part::Kind::kRun:
        pattern += ".*";
        break;
      case Part::Kind::kAny:
        pattern += '.';
        break;
      case Part::Kind::kClass:
        pattern += "[" + part.text + "]";
        break;
      default:
        pattern += Escaped(part.text);
    }
  }
  return pattern + " *$";
}

}  // namespace

std::size_t FirstCharacter(std::string_view text) {
  std::size_t size = 1;
  while (size < text.size() && (static_cast<unsigned char>(text[size]) & 0xC0U) == 0x80U) ++size;
  return size;
}

PostgresPattern PostgresPatternOf(std::string_view pattern, std::string_view escape) {
  using Way = PostgresPattern::Way;
  const std::vector<Part> parts = Reader(pattern, escape).Parts();
  const auto has = [&](Part::Kind kind) {
    return std::ranges::any_of(parts, [&](const Part& part) { return part.kind == kind; });
  };
  if (has(Part::Kind::kNever)) return {Way::kNever, ""};
  if (has(Part::Kind::kClass)) return {Way::kRegular, RegularOf(parts)};
  if (parts.empty()) return {Way::kLikeTrimmed, ""};
  const Part& last = parts.back();
  if (last.kind == Part::Kind::kRun) return {Way::kLike, LikeOf(parts)};
  if (last.kind == Part::Kind::kCharacter && last.text != " ") {
    return {Way::kLikeTrimmed, LikeOf(parts)};
  }
  return {Way::kRegular, RegularOf(parts)};
}

}  // namespace pstolvane1::sql
