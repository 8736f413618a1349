// The amounts of one kind of document per ledger.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "session/ReportFrame.h"

namespace pstolvane1 {

struct DocumentListArguments {
  std::int32_t lngVouchertype_id = 0;
  std::string_view from, to;  // as SqlDateText
  float gScale = 1;
  bool blnNoRel = false;
  std::string_view strBillFilter;
};

// One row a ledger, by name: amount (already divided by the scale), ledger_id, ledgername.
[[nodiscard]] std::string ComposeDoc_Initial(const DocumentListArguments& arguments);

// The ledgers of rsReport, a rule and a total.
[[nodiscard]] RecordsetPtr mDoc_Initial(ReportFrame& frame);

RecordsetPtr Doc_Initial(ReportFrame& frame, std::uint8_t bytYearno, std::int32_t lngVouchertype_id,
                         Date dtFromDate, Date dtToDate, Boolean blnReport, float gScale,
                         Boolean blnNoRel, std::string_view strBillFilter);

}  // namespace pstolvane1
