// Free goods line by line: what was moved and not billed, of an item or of a party.
#pragma once

#include <cstdint>
#include <string>

#include "pending/FreeLines.h"
#include "session/ReportFrame.h"

namespace pstolvane1 {

struct FreeQuantityArguments {
  FreeQuantityOf of = FreeQuantityOf::kItem;
  std::uint8_t bytYearno = 0;
  Date dtFromDate, dtToDate;
  std::int32_t lngItem_id = 0, lngLedger_Id = 0;  // 0 is all
  bool blnUseLongDate = false;
  std::string strRefSeperator = "/";
  std::uint8_t bytOptional = 0;  // documents: 0 regular, 1 optional, 2 both; more is 0
  bool blnDetailed = false;
  bool blnShowNarration = false;
  float sngScale = 1;
};

// One row a line with a free quantity, by date, document and line; values are divided by the scale.
// Detailed, a shape command whose chapter chpgoddets holds the movements of the line, as they were
// entered.
[[nodiscard]] std::string ComposeFreeQuantity(const FreeQuantityArguments& arguments);

// The lines of rsReport under "Inwards:" and "Outwards:", with godowns and narrations below them;
// no closing lines. Errors are passed over: a cell that cannot be shown stays Null.
[[nodiscard]] RecordsetPtr mFreeQuantity(ReportFrame& frame);

RecordsetPtr FreeQuantity(ReportFrame& frame, const FreeQuantityArguments& arguments,
                          Boolean blnReport);

}  // namespace pstolvane1
