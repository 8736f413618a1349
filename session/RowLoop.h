// The row loop of a row builder.
#pragma once

#include <cstdint>

#include "session/ReportFrame.h"

namespace pstolvane1 {

// Calls write_row on each row of the source from where it stands, and after it yields to the
// message loop and raises "manipulating". The test of a cancel stands at the end of the pass: one
// row is always done, and the caller goes on to its closing lines.
template <typename WriteRow>
void ForEachSourceRow(ReportFrame& frame, Recordset& source, WriteRow&& write_row,
                      std::int32_t lngRange = 60) {
  frame.lngFetchTotal = source.RecordCount();
  while (!source.Eof()) {
    write_row();
    source.MoveNext();
    if (!frame.EndPass(lngRange)) return;
  }
}

}  // namespace pstolvane1
