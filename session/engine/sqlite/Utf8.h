// UTF-8 text, character by character.
#pragma once

#include <string>
#include <string_view>

namespace pstolvane1::sqlite {

// A byte that is not part of valid UTF-8 counts as a character of its own, kStrayByte + the byte.
inline constexpr char32_t kStrayByte = 0x110000;

// Takes the first character off a text that is not empty.
char32_t TakeCharacter(std::string_view& text);
// The same, with its case taken away (Unicode's simple folding).
char32_t TakeFolded(std::string_view& text);

[[nodiscard]] bool IsUtf8(std::string_view text) noexcept;
// The text with U+FFFD for every stray byte.
[[nodiscard]] std::string Repaired(std::string_view text);
void Append(std::string& text, char32_t character);

}  // namespace pstolvane1::sqlite
