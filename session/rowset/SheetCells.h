// What a cell of a workbook holds: the value that its text shows, and the format that shows it.
#pragma once

#include <cstddef>
#include <string>
#include <variant>

#include "session/data/Recordset.h"
#include "session/rowset/Locale.h"
#include "session/rowset/ReportView.h"

namespace pstolvane1 {

struct SheetCell {
  std::variant<std::monostate, double, bool, std::string> value;
  std::string format;  // of a spreadsheet; "" is its general one
};

// The value of a typed cell: a date as the spreadsheet's day number.
[[nodiscard]] SheetCell CellOf(const Recordset::Row& row, ColumnHandle column, DataType type,
                               const Locale& locale);

// What the text of a report says: "12.50", "₹12.50", "12.50%", "12.50 Nos" (the unit goes into the
// format), "@ ₹12.50/Nos", a date, or a whole number without a zero in front. Anything else is a
// text.
[[nodiscard]] SheetCell CellOf(const std::string& text, const Locale& locale);

// The cell of a line. What a report shows is text; of other columns the value of the row that the
// line shows is taken, or nothing on a line that has none.
[[nodiscard]] SheetCell CellOf(const ReportView& view, const ReportView::Line& line,
                               std::size_t column, const Recordset& rowset);

// The value alone: a number with "." and no grouping, a percentage as its hundredths, a date as ISO
// text, a flag as -1 and 0, a text as it is.
[[nodiscard]] std::string PlainText(const SheetCell& cell);
[[nodiscard]] bool IsDay(const SheetCell& cell);

}  // namespace pstolvane1
