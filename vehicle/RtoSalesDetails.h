// What a dealer files with the road transport office when a vehicle is registered. The host gets
// the query's own rowset.
#pragma once

#include <cstdint>
#include <string>

#include "session/ReportFrame.h"

namespace pstolvane1 {

struct TransportOfficeArguments {
  Date dtFromDate, dtToDate;
  std::int32_t Desr_Id = 0;  // the one document; 0 is all of the period
};

// A row for each vehicle sold on a document that is not yet filed (Audited 0), by date and number.
// General-purpose columns of Terms1 come under the names of what the forms ask. Not normalised.
[[nodiscard]] std::string ComposeRtoSalesDetails(const TransportOfficeArguments& arguments);
// The vehicles sold, to pick from. The text has an " and " with nothing behind it, so that the
// database refuses it; that is meant. Not normalised.
[[nodiscard]] std::string ComposeRtoSalesDetails1(const TransportOfficeArguments& arguments);

RecordsetPtr RtoSalesDetails(ReportFrame& frame, const TransportOfficeArguments& arguments,
                             const RecordsetPtr& recitem, Boolean blnReport);
RecordsetPtr RtoSalesDetails1(ReportFrame& frame, const TransportOfficeArguments& arguments,
                              const RecordsetPtr& recitem, Boolean blnReport);

// The query's own rowset.
[[nodiscard]] RecordsetPtr TakeReport(ReportFrame& frame);

}  // namespace pstolvane1
