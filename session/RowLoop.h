// The row loop of a row builder.
#pragma once

#include <cstdint>

#include "session/ReportFrame.h"

namespace pstolvane1 {

// What an error of a row builder was about: the report, and the row of its source, from 1.
[[nodiscard]] Error WhileWritingRow(const Error& error, const ReportFrame& frame, std::int32_t row);

// Calls write_row on each row of the source, which stands at its first row and is the builder's own
// clone (another builder may run while this one yields), and after it yields to the
// message loop and raises "manipulating". The test of a cancel stands at the end of the pass: one
// row is always done, and the caller goes on to its closing lines. An error of write_row goes on
// with its row.
template <typename WriteRow>
void ForEachSourceRow(ReportFrame& frame, Recordset& source, WriteRow&& write_row,
                      std::int32_t lngRange = 60) {
  frame.lngFetchTotal = source.RecordCount();
  std::int32_t row = 0;
  while (!source.Eof()) {
    ++row;
    try {
      write_row();
    } catch (const Error& error) {
      throw WhileWritingRow(error, frame, row);
    }
    source.MoveNext();
    if (!frame.EndPass(lngRange)) return;
  }
}

// The same for rows that are not read by moving, such as those of a group; the caller has set
// lngFetchTotal.
template <typename Rows, typename WriteRow>
void ForEachRow(ReportFrame& frame, const Rows& rows, WriteRow&& write_row,
                std::int32_t lngRange = 60) {
  std::int32_t number = 0;
  for (const Recordset::Row row : rows) {
    ++number;
    try {
      write_row(row);
    } catch (const Error& error) {
      throw WhileWritingRow(error, frame, number);
    }
    if (!frame.EndPass(lngRange)) return;
  }
}

}  // namespace pstolvane1
