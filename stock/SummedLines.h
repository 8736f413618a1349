// Lines of stock keys that a statement sums: how a query tells what each counts in, and how that is
// read.
#pragma once

#include <string>
#include <string_view>

#include "session/data/Recordset.h"
#include "stock/LineColumns.h"
#include "valuation/MovedLine.h"

namespace pstolvane1 {

// Conditions on Godownitem1: what a line counts in.
struct SummedIn {
  std::string_view average;  // "" for no line
  std::string opening;       // the position before the period
  std::string closing;       // the position at its end; "" for every line
  std::string period;
};

// LINE of such a line.
[[nodiscard]] std::string ComposeSummedLine(const SummedIn& conditions);
// A row of LINE, QUANTITY and RATE.
[[nodiscard]] MovedLine ReadSummedLine(const Recordset::Row& row, const LineColumns& columns);

// The order in which an index has the lines. Their sums need none.
inline constexpr std::string_view kByKeyAndYear =
    "GODOWNITEM1.ITEM_ID , GODOWNITEM1.GODOWN_ID , GODOWNITEM1.BATCH_ID , GODOWNITEM1.YEARNO";

}  // namespace pstolvane1
