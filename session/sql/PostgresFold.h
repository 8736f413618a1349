// What stands for a text in the server's own words where case and trailing blanks do not count.
#pragma once

#include <string>
#include <string_view>

#include "session/sql/Catalog.h"

namespace pstolvane1::sql {

// The server's ICU makes letters large and small with regard to their neighbours, and some of them
// become two; the dialect takes them one by one. What differs is exchanged before and after, where
// the database's encoding has these letters.

enum class TrailingBlanks { kCut, kKept };

// The text whose bytes compare as the dialect compares the value: no case, no trailing blanks
// unless they are kept. Any index that is to serve a comparison of texts is made on it. The value
// binds at least as tightly as a sign.
[[nodiscard]] std::string PostgresFolded(const std::string& value, Characters characters,
                                         TrailingBlanks blanks = TrailingBlanks::kCut);
// The same of a text that stands in the query.
[[nodiscard]] std::string PostgresFoldedText(std::string_view text, Characters characters,
                                             TrailingBlanks blanks = TrailingBlanks::kCut);
[[nodiscard]] std::string PostgresSmall(const std::string& value, Characters characters);
[[nodiscard]] std::string PostgresLarge(const std::string& value, Characters characters);

}  // namespace pstolvane1::sql
