// Stock in layers: first in first out, last in first out.
#pragma once

#include <string>

#include "session/Launch.h"
#include "stock/StockArguments.h"

namespace pstolvane1 {

// A shape command: one row an item, godown and batch with names and units, in no order, and under a
// tree ItemCategory_Id. Its chapter CHPTRANS has its lines in walking order: LINE (its kind as a
// number of StockLine, 4 times its sale, and 16 in the period), YEARNO, QUANTITY and RATE. Not
// normalised.
[[nodiscard]] std::string ComposeFifoLifo(const StockArguments& arguments,
                                          const DocumentFilter& filter);

[[nodiscard]] SourceQueries StockDetails_Item_FifoLifo(const modStolvane1& module,
                                                       const StockArguments& arguments);
[[nodiscard]] SourceQueries StockDetails_Group_FifoLifo(const modStolvane1& module,
                                                        const StockArguments& arguments);
[[nodiscard]] RecordsetPtr mStock_FifoLifo(ReportFrame& frame);
[[nodiscard]] RecordsetPtr mStockGroup_FifoLifo(ReportFrame& frame);

}  // namespace pstolvane1
