// Reports that people would rather look at: which of their columns make a picture.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace pstolvane1::automation {

struct Picture {
  enum class Kind : std::uint8_t {
    kMonths,  // a value for each line, in their order
    kShares,  // the greatest first, what is left as one
  };
  std::string_view operation;
  Kind kind;
  std::string_view words;
  std::string_view names;        // the column that says what a value is of
  std::string_view values;       // columns with commas between
  std::string_view unlike = {};  // names that begin so are parts of others, and left out
};

[[nodiscard]] std::span<const Picture> Pictures();

}  // namespace pstolvane1::automation
