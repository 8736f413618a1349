// The dialect's LIKE patterns as PostgreSQL's.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace pstolvane1::sql {

// A pattern of % (any run), _ (any character), [a-z0] (one of) and [^a-z0] (none of); a character
// behind the escape character stands for itself. Case does not count; trailing blanks of the text
// do not count where the pattern does not ask for them.
struct PostgresPattern {
  enum class Way {
    kLike,         // text LIKE pattern
    kLikeTrimmed,  // text without its trailing blanks LIKE pattern
    kRegular,      // text ~ pattern
    kNever,        // no text fits
  };
  Way way;
  std::string pattern;
};

// escape is one character or nothing.
[[nodiscard]] PostgresPattern PostgresPatternOf(std::string_view pattern, std::string_view escape);

// How many bytes the first character of a text has that is not empty.
[[nodiscard]] std::size_t FirstCharacter(std::string_view text);

}  // namespace pstolvane1::sql
