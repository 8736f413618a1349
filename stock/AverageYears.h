// The years of the average's source folded into one row a stock key.
#pragma once

#include "session/ReportFrame.h"

namespace pstolvane1 {

// Reads rsReport and Rs1. Gives one row an item, godown and batch, in a statement's order: names,
// units and ids, the position at the end of the period (QtyBal, TotalValue), the one before it
// (QtyOp, ValueOp), and the period of the key's last year (QtyIn to ValueOut). A first year that
// nothing priced came into is valued at the last standard cost.
[[nodiscard]] RecordsetPtr mStock_MergeYears(ReportFrame& frame);

}  // namespace pstolvane1
