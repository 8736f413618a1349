// Tests of single ASCII characters, for the readers of plain text.
#pragma once

#include <string_view>

namespace pstolvane1 {

inline constexpr std::string_view kWhiteSpace = " \t\r\n";

[[nodiscard]] constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// The text without these characters at both ends: without its blanks, if no others are named.
[[nodiscard]] constexpr std::string_view Trimmed(std::string_view text,
                                                 std::string_view characters = " ") {
  const std::size_t first = text.find_first_not_of(characters);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(characters) - first + 1);
}

}  // namespace pstolvane1
