// The warranty lines to claim from the maker.
#pragma once

#include <cstdint>
#include <string>

#include "session/ReportFrame.h"

namespace pstolvane1 {

struct ClaimArguments {
  Date dtFromDate, dtToDate;  // of the line and of its bill
  std::string strRefSeperator = "/";
  float sngScale = 1;
};

// The warranty lines of service bills whose defect, vendor and performance have names, by day and
// document as they were entered.
[[nodiscard]] std::string ComposeClaimReport(const ClaimArguments& arguments,
                                             const DocumentFilter& filter);

// A line for each claim, with the part as rsItems knows it; a rule and a total. The date rule is
// that of the report before; under long dates a claim is error 3265.
[[nodiscard]] RecordsetPtr mClaimReport(ReportFrame& frame);

RecordsetPtr ClaimReport(ReportFrame& frame, const ClaimArguments& arguments,
                         const RecordsetPtr& recitem, Boolean blnReport);

}  // namespace pstolvane1
