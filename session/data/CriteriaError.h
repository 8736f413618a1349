// How the texts of Filter, Find and Sort say what is wrong with them.
#pragma once

#include <cstddef>
#include <string_view>

#include "session/data/Error.h"

namespace pstolvane1 {

// A text that is being read and what it is called: "filter", "criterion", "sort order".
struct CriteriaText {
  std::string_view noun;
  std::string_view text;

  // the filter "Item_Id =" cannot be read at position 10: expected a value, found the end
  // The position counts characters from 1; a long text is cut around it.
  [[noreturn]] void Raise(std::size_t offset, std::string_view problem,
                          ErrorNumber number = ErrorNumber::kArgumentOutOfRange) const;
};

}  // namespace pstolvane1
