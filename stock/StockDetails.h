// The entries of the stock statements.
#pragma once

#include <string_view>

#include "session/ReportFrame.h"
#include "stock/StockArguments.h"

namespace pstolvane1 {

// Launches the statement of the method: nullptr, with nothing run or written, for one that has
// none. The condition of the arguments is made here of strConsiderForSih and strItemstate.
RecordsetPtr StockDetails(ReportFrame& frame, StockArguments arguments, Boolean blnReport,
                          std::string_view strConsiderForSih, std::string_view strItemstate);

}  // namespace pstolvane1
