// Inward and outward quantities day by day, of one item or of all, with a running closing quantity.
#pragma once

#include <cstdint>
#include <string>

#include "session/FilterClauses.h"
#include "session/ReportFrame.h"

namespace pstolvane1 {

struct ItemDaysArguments {
  std::uint8_t bytYearno = 0;
  Date dtFromDate, dtToDate;
  std::int32_t Item_id = 0;    // -1 is all
  std::int32_t Ledger_id = 0;  // above 0 the one party
  std::string strVouchertype;  // a condition on Vouchertype1
  float sngScale = 0;          // kept for the session; nothing here is money
  std::string strConsiderForSih, strItemstate;
  std::int32_t Cat_id = 0;  // above 0 the one category, or class with blnIsclass; with all items
  bool blnIsclass = false;
};

// One row an item and day, in no order: inwards, outwards, date, item_id, itemname. What lies
// before the period is a row without a date. The rows of one item that is asked for are of item 0
// and have an empty name. Not normalised.
[[nodiscard]] std::string ComposeItemDays(const ItemDaysArguments& arguments,
                                          const DocumentFilter& filter);

// Tells the items by name; what lies before the period opens the report in one line, of item 0 with
// an empty name. Needs nothing but the rows that ItemWise_DlyBkup has fetched.
[[nodiscard]] RecordsetPtr mItemwise_DlyBreakup(ReportFrame& frame);

RecordsetPtr ItemWise_DlyBkup(ReportFrame& frame, const ItemDaysArguments& arguments,
                              Boolean blnReport);

}  // namespace pstolvane1
