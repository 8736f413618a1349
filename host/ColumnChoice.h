// Which columns of a report stand in a table, where not all have room.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "session/rowset/ReportView.h"

namespace pstolvane1::host {

struct ChosenColumns {
  std::vector<std::size_t> shown;  // their places in the view, in its order
  std::vector<std::string> left_out;
};

// Those that fit side by side into so many columns of a terminal, two blanks apart: the first one
// and the first with names always, then the most telling by their looks, a unit together with its
// quantity. widths has one number for each column of
// the view; room 0 is room for all.
[[nodiscard]] ChosenColumns ColumnsThatFit(const ReportView& view,
                                           const std::vector<std::size_t>& widths,
                                           std::size_t room);

}  // namespace pstolvane1::host
