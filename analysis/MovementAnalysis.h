// How much went out to a party, or came in from one, in a period, and how much of it came back: by
// party, item, party group, category, class or area.
#pragma once

#include <cstdint>
#include <string>

#include "analysis/MovementGrouping.h"
#include "session/ReportFrame.h"

namespace pstolvane1 {

inline constexpr std::int32_t kAllGroups = -1;

struct MovementArguments {
  MovementSide side = MovementSide::kSales;
  std::int32_t reptype = 0;  // as it is stored
  std::int32_t lngId = kAllGroups;
  Date dtFromDate, dtToDate;
  bool blnDetailed = false;  // a line for each member of a group; always so for one group
  float sngScale = 1;
  std::string strConsiderForSih, strItemstate;
  bool item_lines = false;  // what the caller asked for, which related items still tell apart
  std::string item_text;    // the expression that stands for an item's name

  [[nodiscard]] bool IsOne() const { return lngId != kAllGroups; }
};

// One row an item and group, or an item and party, in the order of the report: itemname, uom,
// qtyin, ratein, valuein, qtyout, rateout, valueout, item_id and the group's columns. Lower-case,
// without "first" wherever that stands, which is meant; not normalised.
[[nodiscard]] std::string ComposeMovements(const MovementArguments& arguments,
                                           const DocumentFilter& filter);

// Goods that are told as so many of another.
inline constexpr std::string_view kItemRelations = "Select * from ItemRelationShip";

[[nodiscard]] RecordsetPtr mCustomerItemwise_Analysis(ReportFrame& frame);
[[nodiscard]] RecordsetPtr mMovement_PurchaseReturns_Analysis(ReportFrame& frame);
// With the items that are related to others told as those: error 91 without the host's items, 3021
// for a base item that they lack.
[[nodiscard]] RecordsetPtr mItemRelation_Analysis(ReportFrame& frame);

// Writes the stored type back into reptype. A type that the side has not leaves the query without a
// grouping, and the database refuses it.
RecordsetPtr MovementAnalysis(ReportFrame& frame, MovementArguments arguments, ReportType& reptype,
                              Boolean blnReport, const RecordsetPtr& rsItems);

}  // namespace pstolvane1
