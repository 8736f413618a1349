// Which lines of a report stand on which page.
#pragma once

#include <cstddef>
#include <functional>
#include <vector>

namespace pstolvane1::print {

struct LineOnPaper {
  double height;
  bool with_next = false;  // the next line is wanted on the same page
  bool empty = false;      // not worth being the first of a page
};

struct LinesOfAPage {
  std::size_t first, end;  // end is the line behind the last one
};

// Pages are filled as far as lines that belong together allow. A line that is higher than a page,
// and lines that belong together over more than a page, break all the same. At least one page.
// `above` is the height of what stands above a line that is the first of a page; on the first page
// there is none.
[[nodiscard]] std::vector<LinesOfAPage> BreakIntoPages(
    const std::vector<LineOnPaper>& lines, double room_of_first, double room,
    const std::function<double(std::size_t line)>& above);

}  // namespace pstolvane1::print
