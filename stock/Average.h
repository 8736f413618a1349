// Stock at a weighted average that is carried over the years.
#pragma once

#include <cstdint>
#include <string>

#include "session/Launch.h"
#include "stock/StockArguments.h"

namespace pstolvane1 {

// In the first year of the books nothing is carried, and each year's stock of a key is a key.
[[nodiscard]] bool IsFirstYear(std::uint8_t bytYearno);

// Keys with lines, see KeyQuery; each line counts in the position at the day before the period and
// in the one at its end, in what enters the average, and in what came or went in it. Undated lines
// count as lines of the past.
[[nodiscard]] std::string ComposeAverage(const StockArguments& arguments,
                                         const DocumentFilter& filter);

[[nodiscard]] SourceQueries StockDetails_Item_Avg(const modStolvane1& module,
                                                  const StockArguments& arguments);
[[nodiscard]] SourceQueries StockDetails_Group_Avg(const modStolvane1& module,
                                                   const StockArguments& arguments);
[[nodiscard]] RecordsetPtr mStock_Avg(ReportFrame& frame);
[[nodiscard]] RecordsetPtr mStockGroup_Avg(ReportFrame& frame);

}  // namespace pstolvane1
