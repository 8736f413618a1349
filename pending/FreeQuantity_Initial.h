// Free goods summed by item or by party: the first screen, from which a host opens FreeQuantity.
#pragma once

#include <cstdint>
#include <string>

#include "pending/FreeLines.h"
#include "session/ReportFrame.h"

namespace pstolvane1 {

struct FreeSummaryArguments {
  FreeQuantityOf of = FreeQuantityOf::kItem;
  std::uint8_t bytYearno = 0;
  Date dtFromDate, dtToDate;
  bool blnDetailed = false;  // each item by party, or each party by item
  float sngScale = 1;
};

// One row a parent, detailed one row a parent and child, by their names and ids: actual and free
// quantities and values, inwards and outwards, over all lines of the period, optional or not and
// with or without free goods. Values are divided by the scale once they are summed.
[[nodiscard]] std::string ComposeFreeQuantity_Initial(const FreeSummaryArguments& arguments);

// A line for each parent with its sums, detailed with the children below it, a rule and a total.
[[nodiscard]] RecordsetPtr mFreeQuantity_Initial(ReportFrame& frame);

RecordsetPtr FreeQuantity_Initial(ReportFrame& frame, const FreeSummaryArguments& arguments,
                                  Boolean blnReport);

}  // namespace pstolvane1
