// How text is compared everywhere in the library: by code point, ignoring case.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace pstolvane1 {

// Case is taken away character by character: by the simple folding of Unicode, which no locale
// changes, and then what has a small form is small. "ITEM" is "item", "ΟΔΟΣ" is "οδος" and "οδοσ",
// "İ" is "i", "STRASSE" is not "straße". Text is UTF-8; a byte that is not part of
// valid UTF-8 counts as a character of its own, behind all others. Any thread.

// Below 0, 0 or above 0 as a stands before, at or behind b.
[[nodiscard]] int CompareFolded(std::string_view a, std::string_view b);
// The same with the blanks at the end of both taken away first.
[[nodiscard]] int CompareFoldedIgnoringTrailingBlanks(std::string_view a, std::string_view b);
[[nodiscard]] bool EqualFolded(std::string_view a, std::string_view b);
// Equal for texts that are equal when folded.
[[nodiscard]] std::uint64_t HashFolded(std::string_view text);
// The text in its folded form, whose bytes stand in the order of CompareFolded.
[[nodiscard]] std::string Folded(std::string_view text);
// True when the whole text fits the pattern, in which * and % stand for any run of characters.
[[nodiscard]] bool LikeFolded(std::string_view text, std::string_view pattern);
// One character of Unicode in its folded form.
[[nodiscard]] std::int32_t FoldedCharacter(std::int32_t character);
// How many characters a text has.
[[nodiscard]] std::size_t CountCharacters(std::string_view text);

}  // namespace pstolvane1
