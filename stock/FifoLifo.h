// Stock in layers: first in first out, last in first out.
#pragma once

#include <string>

#include "session/Launch.h"
#include "stock/StockArguments.h"

namespace pstolvane1 {

// Keys with lines in walking order, see KeyQuery. LINE is the line's kind as a number of StockLine,
// 4 times its sale, and 16 in the period.
[[nodiscard]] std::string ComposeFifoLifo(const StockArguments& arguments,
                                          const DocumentFilter& filter);

[[nodiscard]] SourceQueries StockDetails_Item_FifoLifo(const modStolvane1& module,
                                                       const StockArguments& arguments);
[[nodiscard]] SourceQueries StockDetails_Group_FifoLifo(const modStolvane1& module,
                                                        const StockArguments& arguments);
[[nodiscard]] RecordsetPtr mStock_FifoLifo(ReportFrame& frame);
[[nodiscard]] RecordsetPtr mStockGroup_FifoLifo(ReportFrame& frame);

}  // namespace pstolvane1
