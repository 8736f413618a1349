// A report as text for a terminal or a file.
#pragma once

#include <cstddef>
#include <iosfwd>
#include <string_view>

#include "session/rowset/ReportView.h"

namespace pstolvane1::host {

// Columns that have content, two blanks apart, numbers to the right; a line under the header, the
// report's own rule and total lines drawn. With colour, header and totals are bold and lines dim.
void WriteTable(const ReportView& view, bool colour, std::ostream& out);

// The columns of a terminal that a UTF-8 text takes: wide characters two, combining ones none.
[[nodiscard]] std::size_t DisplayWidth(std::string_view text);

}  // namespace pstolvane1::host
