// Stock at the average of a whole year, item by item, without godowns and batches.
#pragma once

#include <string>

#include "session/Launch.h"
#include "stock/StockArguments.h"

namespace pstolvane1 {

// The items with their units, by name, and under a tree ItemCategory_Id. Items younger than the
// last yearly total are left out. Not normalised, as the others.
[[nodiscard]] std::string ComposeSimpleAverageItems(const StockArguments& arguments);

// One row an item: ITEM_ID and QTY_ and VALUE_ of OPENING, INWARDS, OUTWARDS and CLOSING, which is
// valued at (opening + inwards) value / quantity, and at 0 where that quantity is 0. The first is
// of a whole year, from its totals; the second of a period within it, from the opening totals and
// the lines of documents since the year's first day.
[[nodiscard]] std::string ComposeSimpleAverageYear(std::uint8_t bytYearno);
[[nodiscard]] std::string ComposeSimpleAveragePeriod(const StockArguments& arguments,
                                                     Date year_from, const DocumentFilter& filter);

[[nodiscard]] SourceQueries StockDetails_Item_SimpleAvg(const modStolvane1& module,
                                                        const StockArguments& arguments);
[[nodiscard]] SourceQueries StockDetails_Group_SimpleAvg(const modStolvane1& module,
                                                         const StockArguments& arguments);
[[nodiscard]] RecordsetPtr mStock_SimpleAvg(ReportFrame& frame);
[[nodiscard]] RecordsetPtr mStockGroup_SimpleAvg(ReportFrame& frame);

}  // namespace pstolvane1
