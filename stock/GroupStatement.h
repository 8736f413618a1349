// The statement that lists stock under a tree of groups.
#pragma once

#include "stock/ValuedKeys.h"

namespace pstolvane1 {

// A line for each group of RsCategory that lngAny_Id1 and blnOnlyItems choose, with the sums of the
// stock keys that stand in that group itself, and, with blnDetailed or blnOnlyItems, a line for
// each of their items below it. Then a rule and the total. A group without stock is a line with its
// name only. The groups come by their names.
[[nodiscard]] RecordsetPtr WriteGroupStatement(ReportFrame& frame, const ValuedKeys& valued);

}  // namespace pstolvane1
