// The sales behind a financier, day by day.
#pragma once

#include <cstdint>
#include <string>

#include "session/ReportFrame.h"

namespace pstolvane1 {

struct HypoListArguments {
  std::uint8_t bytYearno = 0;
  Date dtFromDate, dtToDate;
  bool blnDetailed = false;  // kept for the session; the list has no lines below a bill
  float sngScale = 1;
  std::int32_t Hypo_id = 0;  // 0 is all
  std::int32_t Item_id = 0;  // the model; 0 is all
};

// The lines of financed sales by financier, day and document, and by the name of their item.
// vehiclebill is the line's amount. Under an alias for ledgers no column is called ledgername.
[[nodiscard]] std::string ComposeHypoReportDaily(const HypoListArguments& arguments,
                                                 const DocumentFilter& filter);

// A line for each sale, of its first row; a line for the rule, and a total. Passes over errors.
[[nodiscard]] RecordsetPtr mHypoReportDaily(ReportFrame& frame);

RecordsetPtr HypoReportDaily(ReportFrame& frame, const HypoListArguments& arguments,
                             Boolean blnReport);

}  // namespace pstolvane1
