// The name that somebody may have meant.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace pstolvane1::automation {

// How many letters have to be written, left out or changed to get from one name to the other, in
// any case.
[[nodiscard]] std::size_t LettersBetween(std::string_view a, std::string_view b);

// "; did you mean \"stock\"?" for the name that is most like the word, or "" when none is near: at
// most a third of its letters differ, or the word begins it.
[[nodiscard]] std::string DidYouMean(std::string_view word,
                                     std::span<const std::string_view> names);

}  // namespace pstolvane1::automation
