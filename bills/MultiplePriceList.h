// Each item with its six prices.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "session/ReportFrame.h"

namespace pstolvane1 {

// One row for each row of the price list, by item. Without a category the text has no "Where", and
// without cosiderforsih it ends in a bare " and ": the database refuses both, which is meant.
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
