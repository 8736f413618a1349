// The statement that lists stock item by item.
#pragma once

#include "stock/ValuedKeys.h"

namespace pstolvane1 {

// With blnDetailed a block for each item: its line with the sums, then a line for each godown and
// batch; otherwise a line for each item. Then a rule and the total. An item without units behind a
// zero quantity shows none.
[[nodiscard]] RecordsetPtr WriteItemStatement(ReportFrame& frame, const ValuedKeys& valued);

}  // namespace pstolvane1
