// The report types of the stock statements, for the dispatcher.
#pragma once

#include <span>

#include "session/ReportRow.h"

namespace pstolvane1 {

[[nodiscard]] std::span<const ReportRow> StockReports();

}  // namespace pstolvane1
