// Every service bill that a vehicle ever had.
#pragma once

#include <cstdint>
#include <string>

#include "session/ReportFrame.h"

namespace pstolvane1 {

struct ServiceHistoryArguments {
  std::uint8_t bytYearno = 0;
  Date dtFromDate, dtToDate;  // kept for the session; the bills of all days are listed
  bool blnDetailed = false;
  float sngScale = 1;
  std::string strFilter;  // a whole clause on Terms1 with its own Where, or ""
};

// The service bills in no order: a row each, detailed one for each line.
// TotalAmount is divided by the scale.
[[nodiscard]] std::string ComposeServiceReportRegno(const ServiceHistoryArguments& arguments);

// A heading for each registration, its bills, and detailed the lines of each bill that rsItems
// knows; complaints stand below the bill. No totals.
[[nodiscard]] RecordsetPtr mServiceReportRegno(ReportFrame& frame);

RecordsetPtr ServiceReportRegno(ReportFrame& frame, const ServiceHistoryArguments& arguments,
                                const RecordsetPtr& rsItm, Boolean blnReport);

}  // namespace pstolvane1
