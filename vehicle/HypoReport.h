// Vehicle sales by financier, and by his pin code and by model.
#pragma once

#include <cstdint>
#include <string>

#include "session/ReportFrame.h"

namespace pstolvane1 {

struct HypoArguments {
  std::uint8_t bytYearno = 0;
  Date dtFromDate, dtToDate;
  bool blnDetailed = false;
  float sngScale = 1;
  std::int32_t Hypo_id = 0;         // 0 is all
  std::uint8_t btTypeOfReport = 0;  // 1 groups the financiers by pin code

  [[nodiscard]] bool ByPin() const { return btTypeOfReport == 1; }
};

// By financier: hypo_id, name, by pin pincode, qty, vehicleamt, totalsales; detailed a row for each
// model as itemname and item_id with totalsalesitem. Money is divided by the scale. totalsales is
// each financed sale once; totalsalesitem has a sale once for each of its lines of the model.
[[nodiscard]] std::string ComposeHypoReport(const HypoArguments& arguments,
                                            const DocumentFilter& filter);

// A line for each financier, detailed his models below it, by pin under a heading; a rule and a
// total.
[[nodiscard]] RecordsetPtr mHypoReport(ReportFrame& frame);

// One financier alone is always listed in detail.
RecordsetPtr HypoReport(ReportFrame& frame, HypoArguments arguments, Boolean blnReport);

}  // namespace pstolvane1
