// The columns of a rowset as texts, put together as a person is shown them.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "session/rowset/ReportView.h"

namespace pstolvane1 {

struct ViewColumn {
  ReportView::Column column;
  ColumnLook look;
  DataType type;
  std::vector<std::string> texts;  // top to bottom, one for each row; Null is ""
  bool content = false;            // any of them is not empty
};

struct ViewColumns {
  std::vector<ViewColumn> columns;
  std::vector<std::optional<Bookmark>> rows;  // none for what no row holds
  std::vector<char> rules;     // of each row of a report: whether it had a rule, which is no text
  std::vector<int> levels;     // of each row, from 0 on
  std::vector<char> headings;  // of each row: whether it heads others by its look
  std::vector<char> sums;      // of each row: whether it holds sums of the report
};

// Reads all visible rows, and puts what stands in other columns there. A report has more columns
// that are not for people, and columns of sums.
[[nodiscard]] ViewColumns ReadViewColumns(const Recordset& rowset, const Locale& locale,
                                          const ReportLook& look, bool report);

}  // namespace pstolvane1
