// The bills of the free services of one vehicle model, day by day.
#pragma once

#include <cstdint>
#include <string>

#include "session/ReportFrame.h"

namespace pstolvane1 {

struct FreeServiceListArguments {
  std::uint8_t bytYearno = 0;
  Date dtFromDate, dtToDate;
  bool blnDetailed = false;
  float sngScale = 1;
  std::int32_t Vehicle_id = 0;
};

[[nodiscard]] std::string ComposeFreeServiceReportDaily(const FreeServiceListArguments& arguments,
                                                        const DocumentFilter& filter);

// The bills, detailed the lines of each that rsItems knows, a rule and a total.
[[nodiscard]] RecordsetPtr mFreeServiceReportDaily(ReportFrame& frame);

RecordsetPtr FreeServiceReportDaily(ReportFrame& frame, std::int32_t reptype,
                                    const FreeServiceListArguments& arguments,
                                    const RecordsetPtr& rsItms, Boolean blnReport);

}  // namespace pstolvane1
