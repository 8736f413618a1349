// Bills and labour by mechanic, and by vehicle model or labour item.
#pragma once

#include <cstdint>
#include <string>

#include "session/ReportFrame.h"

namespace pstolvane1 {

struct LabourArguments {
  std::uint8_t bytYearno = 0;
  Date dtFromDate, dtToDate;
  bool blnDetailed = false;
  float sngScale = 1;
  std::int32_t Mechanic_id = 0;  // 0 is all
  std::uint8_t btTypeOfReport = 0;
};

// By mechanic: mechanic_id, mechanicname, totalbill, labourbill, divided by the scale. Detailed a
// row for each model or labour item as itemname and item_id; labourbill is Null without labour, and
// by item totalbill is the mechanic's whole billing on every row.
[[nodiscard]] std::string ComposeMechanicLabourReport(const LabourArguments& arguments,
                                                      const DocumentFilter& filter);

// A line for each mechanic, detailed the models or items below it; a rule and a total.
[[nodiscard]] RecordsetPtr mMechanicLabourReport(ReportFrame& frame);

// One mechanic alone is always listed in detail.
RecordsetPtr MechanicLabourReport(ReportFrame& frame, LabourArguments arguments, Boolean blnReport);

}  // namespace pstolvane1
