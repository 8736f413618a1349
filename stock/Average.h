// Stock at a weighted average that is carried over the years.
#pragma once

#include <string>

#include "session/Launch.h"
#include "stock/StockArguments.h"

namespace pstolvane1 {

// One row an item, godown, batch and year, in no order: names and units; QTYBAL and TOTALVALUE at
// the end of the period, QTYOP and VALUEOP at the day before it, what enters the average up to both
// days (qtyinforcalculation, totalvalueinforcalculation and the same with "op" behind), and QTYIN,
// VALUEIN, QTYOUT, VALUEOUT of the period. Under a tree also ItemCategory_Id. Not normalised.
[[nodiscard]] std::string ComposeAverage(const StockArguments& arguments,
                                         const DocumentFilter& filter);

[[nodiscard]] SourceQueries StockDetails_Item_Avg(const modStolvane1& module,
                                                  const StockArguments& arguments);
[[nodiscard]] SourceQueries StockDetails_Group_Avg(const modStolvane1& module,
                                                   const StockArguments& arguments);
[[nodiscard]] RecordsetPtr mStock_Avg(ReportFrame& frame);
[[nodiscard]] RecordsetPtr mStockGroup_Avg(ReportFrame& frame);

}  // namespace pstolvane1
