// The commission that employees earn on the items they sell.
#pragma once

#include <cstdint>
#include <string>

#include "session/FilterClauses.h"
#include "session/ReportFrame.h"

namespace pstolvane1 {

struct CommissionArguments {
  std::int32_t reptype = 0;
  Date dtFromDate, dtToDate;
  bool blnDetailed = false;  // also where one employee or item is asked for
  std::int32_t lngId1 = -1;  // the one employee or item
  float sngScale = 1;
};

struct CommissionDailyArguments {
  Date dtFromDate, dtToDate;
  std::int32_t lngEmployee_Id = 0, lngItem_id = 0;
  float sngScale = 1;
  bool blnUseLongDate = false;
  std::string strRefSeperator = "/";
};

// One row an employee, item and percentage: parent (the employee, or a blank by item), parent_id,
// item_id, compercent (Null where a line reaches no slab), totalsales over the scale. By parent,
// item, employee and percentage. One item is asked for by a table that the query does not join, and
// the database refuses that; it is meant. Not normalised.
[[nodiscard]] std::string ComposeCommission(const CommissionArguments& arguments,
                                            const DocumentFilter& filter);
// One row a line of a document, by date and key. Not normalised.
[[nodiscard]] std::string ComposeCommissionDaily(const CommissionDailyArguments& arguments,
                                                 const DocumentFilter& filter);

[[nodiscard]] RecordsetPtr mCommission_Initial(ReportFrame& frame);
[[nodiscard]] RecordsetPtr mCommission_Daily(ReportFrame& frame);

// recitem has itemnew_id and itemname.
RecordsetPtr Commission_Initial(ReportFrame& frame, CommissionArguments arguments,
                                Boolean blnReport, const RecordsetPtr& recitem);
RecordsetPtr Commission_Daily(ReportFrame& frame, const CommissionDailyArguments& arguments,
                              Boolean blnReport);

inline constexpr std::int32_t kAllCommission = -1;

}  // namespace pstolvane1
