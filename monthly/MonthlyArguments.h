// What a month ledger is asked for.
#pragma once

#include <cstdint>

#include "session/ValuationReports.h"
#include "session/data/Date.h"

namespace pstolvane1 {

struct MonthlyArguments {
  MonthlyTree tree = MonthlyTree::kItem;
  std::uint8_t bytYearno = 0;
  Date dtFromDate, dtToDate;
  enmValuationMethod ValuationMethod = AverageRate;
  std::int32_t lngAny_Id1 = 0;  // the item, or the category, class or godown
  std::int32_t lngAny_Id2 = 0;  // the godown of an item in a godown
  bool blnAltUom = false;
  float sngScale = 1;
  bool blnOnlyItems = false;  // the group alone, without those directly under it
  std::int32_t lngBatch_id = 0;
};

// A ledger of one item has units; that of a group adds quantities as they stand.
[[nodiscard]] constexpr bool IsOfOneItem(const MonthlyArguments& arguments) {
  return arguments.tree == MonthlyTree::kItem || arguments.tree == MonthlyTree::kGodownItem;
}

}  // namespace pstolvane1
