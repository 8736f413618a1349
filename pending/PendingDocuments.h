// Documents that later ones have not executed in full, of an item, a party or an employee.
#pragma once

#include <cstdint>
#include <string>

#include "session/ReportFrame.h"

namespace pstolvane1 {

enum class PendingOf { kItem, kLedger, kEmployee };

struct PendingArguments {
  PendingOf of = PendingOf::kItem;
  std::uint8_t bytYearno = 0;
  Date dtFromDate, dtToDate;
  // 0 is all for the ledger of an item and for the item of a ledger; an employee takes neither.
  std::int32_t lngItem_id = 0, lngLedger_Id = 0;
  std::int32_t lngEmployee_Id = 0;
  std::int32_t lngVouchertype_id = 0;  // the kind whose chain is followed; without one all are
  float sngScale = 1;
  bool blnDetailed = false;
  bool blnUseLongDate = false;
  bool blnShowNarration = false;
  std::string strRefSeperator = "/";
};

// One row a movement of the period, in no order: quantities without a sign, Sum1 what later
// movements have executed of it, and the type of the document that it executes itself, 0 for none.
// A movement comes once for each movement of that document in its own place. What is deleted is
// neither listed nor counted.
[[nodiscard]] std::string ComposePending(const PendingArguments& arguments);

// The lines of rsReport that have something pending, each kind under its heading; a heading stays
// when none of its lines does. No closing lines.
[[nodiscard]] RecordsetPtr mPending(ReportFrame& frame);

RecordsetPtr Pending(ReportFrame& frame, const PendingArguments& arguments, Boolean blnReport);

}  // namespace pstolvane1
