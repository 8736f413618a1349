#include "session/sql/Refusal.h"

#include <algorithm>

#include "session/data/Error.h"

namespace pstolvane1::sql {

std::string PlaceText(std::string_view text, Place place) {
  const std::string_view before = text.substr(0, std::min<std::size_t>(place, text.size()));
  const auto line = std::count(before.begin(), before.end(), '\n') + 1;
  const std::size_t newline = before.rfind('\n');
  const std::string_view in_line =
      newline == std::string_view::npos ? before : before.substr(newline + 1);
  const auto is_first_byte = [](char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
  };
  const auto column = std::count_if(in_line.begin(), in_line.end(), is_first_byte) + 1;
  return "line " + std::to_string(line) + ", column " + std::to_string(column);
}

std::string Excerpt(std::string_view text, Place place) {
  constexpr std::size_t kAround = 32;
  const auto continues = [text](std::size_t at) {
    return at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0U) == 0x80U;
  };
  const std::size_t at = std::min<std::size_t>(place, text.size());
  std::size_t first = at > kAround ? at - kAround : 0;
  std::size_t last = std::min(at + kAround, text.size());
  while (first > 0 && continues(first)) --first;
  while (continues(last)) ++last;
  std::string excerpt(text.substr(first, last - first));
  std::replace_if(
      excerpt.begin(), excerpt.end(), [](char c) { return c == '\n' || c == '\r' || c == '\t'; },
      ' ');
  return (first > 0 ? "near ..." : "near ") + excerpt + (last < text.size() ? "..." : "");
}

void Refuse(std::string_view text, Place place, std::string_view why) {
  throw Error(ErrorNumber::kQueryRefused, PlaceText(text, place) + ": " + std::string(why),
              Excerpt(text, place));
}

}  // namespace pstolvane1::sql
