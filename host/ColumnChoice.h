// Which columns of a report stand in a table, where not all have room or are wanted.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "session/rowset/ReportView.h"

namespace pstolvane1::host {

struct ChosenColumns {
  std::vector<std::size_t> shown;  // their places in the view, in its order or as they were named
  std::vector<std::string> left_out;
};

// Those that fit side by side into so many columns of a terminal, two blanks apart: the first one
// and the first with names always, then the most telling by their looks, a unit together with its
// quantity. widths has one number for each column of
// the view; 0 is room for all.
[[nodiscard]] ChosenColumns ColumnsThatFit(const ReportView& view,
                                           const std::vector<std::size_t>& widths,
                                           std::size_t room);
// The columns of these names or labels with commas between, in any case, in their order; "all" is
// every column. Error 3001 for a name that the report does not show.
[[nodiscard]] ChosenColumns ColumnsNamed(const ReportView& view, const std::string& names);

}  // namespace pstolvane1::host
