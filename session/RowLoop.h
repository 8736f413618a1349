// What a row builder has of its session: the loop over its source's rows, and how cells are shown.
#pragma once

#include <cstdint>
#include <string_view>

#include "session/ReportFrame.h"
#include "session/data/RowGroups.h"
#include "session/rowset/CellStyle.h"

namespace pstolvane1 {

// The session's locale, and the report's scale, date rule and number separator.
[[nodiscard]] CellStyle StyleOf(ReportFrame& frame);

// The source's rows in the order of some columns, "Column [DESC], ...", as a clone of its own. An
// engine sorts all cells of its rows; here their numbers alone are sorted. Error 3265.
[[nodiscard]] RecordsetPtr InOrder(const ReportFrame& frame, Source source,
                                   std::string_view columns);

// Tells of an error of a row builder: the report, and the row of its source, from 1.
[[nodiscard]] Error WhileWritingRow(const Error& error, const ReportFrame& frame,
                                    const Recordset::Row& row);

// Calls write_row(row) for some rows of the source, such as those of a group. The rows of the whole
// source are the progress total. After each row it yields to the message loop, raises
// "manipulating", and ends if the report is cancelled: one row is always done, and the caller goes
// on to its closing lines. False if it was cancelled. An error of write_row is told with its row.
template <typename Rows, typename WriteRow>
bool ForEachSourceRow(ReportFrame& frame, const Recordset& source, const Rows& rows,
                      WriteRow&& write_row, std::int32_t lngRange = 60) {
  frame.lngFetchTotal = source.RecordCount();
  for (const Recordset::Row row : rows) {
    try {
      write_row(row);
    } catch (const Error& error) {
      throw WhileWritingRow(error, frame, row);
    }
    if (!frame.EndPass(lngRange)) return false;
  }
  return true;
}

// The same for the rows of each key in turn: write_group(group). The groups are the progress total,
// and a cancel is seen between them.
template <typename WriteGroup>
bool ForEachGroup(ReportFrame& frame, const RowGroups& groups, WriteGroup&& write_group,
                  std::int32_t lngRange = 60) {
  frame.lngFetchTotal = static_cast<std::int32_t>(groups.Count());
  for (const RowGroups::Group& rows : groups) {
    try {
      write_group(rows);
    } catch (const Error& error) {
      throw WhileWritingRow(error, frame, rows.First());
    }
    if (!frame.EndPass(lngRange)) return false;
  }
  return true;
}

// The same for all visible rows of the source, in their order. Its position stays where it is. A
// builder that filters or sorts the source takes a clone of its own, because another builder may
// run while this one yields.
template <typename WriteRow>
bool ForEachSourceRow(ReportFrame& frame, const Recordset& source, WriteRow&& write_row,
                      std::int32_t lngRange = 60) {
  return ForEachSourceRow(frame, source, source.Rows(), write_row, lngRange);
}

}  // namespace pstolvane1
