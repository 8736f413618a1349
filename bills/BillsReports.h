// The report types of the bill and price reports, for the dispatcher.
#pragma once

#include <span>

#include "session/ReportRow.h"

namespace pstolvane1 {

[[nodiscard]] std::span<const ReportRow> BillsReports();

}  // namespace pstolvane1
