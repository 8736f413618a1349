// The bills behind a mechanic's labour, day by day.
#pragma once

#include <cstdint>
#include <string>

#include "session/ReportFrame.h"

namespace pstolvane1 {

struct LabourListArguments {
  std::uint8_t bytYearno = 0;
  Date dtFromDate, dtToDate;
  bool blnDetailed = false;
  float sngScale = 1;
  std::int32_t Mechanic_id = 0;  // 0 is all
  std::int32_t Item_id = 0;      // the model, or the labour item; 0 is all
  std::uint8_t btTypeOfReport = 0;
};

// labourbill is the labour of the bill; of one labour item, that item's alone.
[[nodiscard]] std::string ComposeMechanicLabourReportDaily(const LabourListArguments& arguments,
                                                           const DocumentFilter& filter);

// The bills, by vehicle under a heading for each model; detailed the lines of each that rsItems
// knows; a rule and a total. Passes over errors.
[[nodiscard]] RecordsetPtr mMechanicLabourReportDaily(ReportFrame& frame);

RecordsetPtr MechanicLabourReportDaily(ReportFrame& frame, std::int32_t reptype,
                                       const LabourListArguments& arguments,
                                       const RecordsetPtr& rsItm, Boolean blnReport);

}  // namespace pstolvane1
