// The days behind a line of a movement analysis: what went out to a party, or of an item, each day.
#pragma once

#include <cstdint>
#include <string>

#include "analysis/MovementFigures.h"
#include "session/ReportFrame.h"

namespace pstolvane1 {

struct DailyArguments {
  MovementSide side = MovementSide::kSales;
  std::int32_t reptype = 0;  // as it is stored
  std::int32_t lngId = 0;    // the party, item or party group
  std::int32_t lngId2 = 0;   // a second restriction; 0 is none
  Date dtFromDate, dtToDate;
  bool blnUseLongDate = false;
  float sngScale = 1;
  std::string strRefSeperator = "/";
  std::string strConsiderForSih, strItemstate;
};

// One row an item, party and day, by group and day: date, partyname, quantityout, quantityin,
// value, itemname, ledger_id, item_id. Not normalised.
[[nodiscard]] std::string ComposeDays(const DailyArguments& arguments,
                                      const DocumentFilter& filter);

[[nodiscard]] RecordsetPtr mCustomerItemDaily_Analysis(ReportFrame& frame);
[[nodiscard]] RecordsetPtr mMovement_PurchaseReturns_DailyAnalysis(ReportFrame& frame);

// Writes the stored type back into reptype; a type that it does not know has no grouping, and the
// database refuses the query. Whether lines are numbered follows the last analysis, whose detailed
// flag the session keeps; that is meant.
RecordsetPtr DailyAnalysis(ReportFrame& frame, DailyArguments arguments, ReportType& reptype,
                           Boolean blnReport);

// What the days of a report type are of.
struct DailyGrouping {
  ReportType asked, sales, purchases;
  bool by_item;  // a group is an item, otherwise a party
  // In the query: the condition on the one asked for and on the second one, and the order.
  std::string_view one, second, order;
};
// The grouping of a type, asked for or stored on that side; nullptr for any other type.
[[nodiscard]] const DailyGrouping* FindDailyGrouping(MovementSide side, std::int32_t report_type);

}  // namespace pstolvane1
