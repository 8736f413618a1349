// Each item with its six prices.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "session/ReportFrame.h"

namespace pstolvane1 {

// One row for each row of the price list, by item. The text has no repair: without a category there
// is no "Where", so that the conditions go on with the last join's, and without cosiderforsih it
// ends in a bare " and ", which the database refuses. Both are meant.
[[nodiscard]] std::string ComposeMultiplePriceList(std::int32_t lngCategory_Id,
                                                   std::int32_t lngClass_Id,
                                                   std::string_view itemstate,
                                                   std::string_view cosiderforsih);

// The rows of rsReport; no closing lines. Error 94 for a Null price.
[[nodiscard]] RecordsetPtr mMultiplePriceList(ReportFrame& frame);

RecordsetPtr MultiplePriceList(ReportFrame& frame, std::int32_t lngCategory_Id,
                               std::int32_t lngClass_Id, Boolean blnReport,
                               std::string_view itemstate, std::string_view cosiderforsih);

}  // namespace pstolvane1
