// What free services cost, by vehicle category and model.
#pragma once

#include <cstdint>
#include <string>

#include "session/ReportFrame.h"

namespace pstolvane1 {

struct FreeServiceArguments {
  std::uint8_t bytYearno = 0;
  Date dtFromDate, dtToDate;
  bool blnDetailed = false;  // a line for each model below its category
  float sngScale = 1;
  std::int32_t Cat_id = 0;  // 0 and -1 are all categories

  [[nodiscard]] bool OneCategory() const { return Cat_id != 0 && Cat_id != -1; }
};

// One row for each category, detailed for each model, and free service: categoryname,
// itemcategory_id, detailed itemname and item_id, servicetype_id, value divided by the scale.
[[nodiscard]] std::string ComposeFreeServiceReport(const FreeServiceArguments& arguments,
                                                   const DocumentFilter& filter);

// A line for each category, or for each model below its category; a rule and a total.
[[nodiscard]] RecordsetPtr mFreeServiceReport(ReportFrame& frame);

// One category alone is always listed by model.
RecordsetPtr FreeServiceReport(ReportFrame& frame, FreeServiceArguments arguments,
                               Boolean blnReport);

}  // namespace pstolvane1
