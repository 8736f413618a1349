// The sheets that a printer takes.
#pragma once

#include <string>
#include <string_view>

namespace pstolvane1::print {

// Points, 72 to an inch, of the sheet held upright.
struct Paper {
  std::string_view name;
  double width, height;
};

// "A4", "A3", "Letter" or "Legal", in any case. Error 3001 for any other name.
[[nodiscard]] const Paper& PaperNamed(std::string_view name);

}  // namespace pstolvane1::print
