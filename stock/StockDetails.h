// The entries of the stock statements.
#pragma once

#include <string_view>

#include "session/ReportFrame.h"
#include "stock/StockArguments.h"

namespace pstolvane1 {

// Chooses the method's builder: nullptr, with nothing run or written, for a method that has no
// statement. The condition of the arguments is made here of strConsiderForSih and strItemstate.
RecordsetPtr StockDetails(ReportFrame& frame, StockArguments arguments,
                          std::string_view strConsiderForSih, std::string_view strItemstate);

}  // namespace pstolvane1
