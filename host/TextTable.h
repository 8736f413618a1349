// A report as text for a terminal or a file.
#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>
#include <string_view>

#include "session/rowset/ReportView.h"

namespace pstolvane1::host {

// The title and what stands below it, where the look has both; then the columns that have content,
// two blanks apart, numbers to the right, deeper lines moved in; a line under the heads, the
// report's own rule and total lines drawn. With colour, heads, groups and totals are bold and lines
// dim. Columns that do not fit into room, columns of a terminal, are named in a line below; room 0
// is no limit.
void WriteTable(const ReportView& view, bool colour, std::ostream& out, std::size_t room = 0);

// The columns of a terminal that a UTF-8 text takes: wide characters two, combining ones none.
[[nodiscard]] std::size_t DisplayWidth(std::string_view text);

}  // namespace pstolvane1::host
