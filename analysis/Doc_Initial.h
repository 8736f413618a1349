// The amounts of one kind of document per ledger.
#pragma once

#include <cstdint>
#include <string>

#include "session/ReportFrame.h"

namespace pstolvane1 {

struct DocumentListArguments {
  std::uint8_t bytYearno = 0;
  std::int32_t lngVouchertype_id = 0;
  Date dtFromDate, dtToDate;
  float gScale = 1;
  bool blnNoRel = false;
  std::string strBillFilter;
};

// One row a ledger, by name: amount (already divided by the scale), ledger_id, ledgername.
[[nodiscard]] std::string ComposeDoc_Initial(const DocumentListArguments& arguments);

// The ledgers of rsReport, a rule and a total.
[[nodiscard]] RecordsetPtr mDoc_Initial(ReportFrame& frame);

RecordsetPtr Doc_Initial(ReportFrame& frame, const DocumentListArguments& arguments,
                         Boolean blnReport);

}  // namespace pstolvane1
