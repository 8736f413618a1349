#include "host/print/PageBreaks.h"

namespace pstolvane1::print {
namespace {

// The line behind the last one that the page holds; at least one line is on it.
std::size_t EndOfPage(const std::vector<LineOnPaper>& lines, std::size_t first, double room) {
  std::size_t end = first;
  while (end < lines.size() && lines[end].height <= room) room -= lines[end++].height;
  if (end == lines.size()) return end;
  if (end == first) return first + 1;
  std::size_t earlier = end;
  while (earlier > first && lines[earlier - 1].with_next) --earlier;
  return earlier > first ? earlier : end;
}

}  // namespace

std::vector<LinesOfAPage> BreakIntoPages(const std::vector<LineOnPaper>& lines,
                                         double room_of_first, double room,
                                         const std::function<double(std::size_t line)>& above) {
  std::vector<LinesOfAPage> pages;
  std::size_t first = 0;
  do {
    const double left = pages.empty() ? room_of_first : room - above(first);
    const std::size_t end = EndOfPage(lines, first, left);
    pages.push_back({first, end});
    first = end;
    while (first < lines.size() && lines[first].empty) ++first;
  } while (first < lines.size());
  return pages;
}

}  // namespace pstolvane1::print
