// The report types of the monthly stock reports, for the dispatcher.
#pragma once

#include <span>

#include "session/ReportRow.h"

namespace pstolvane1 {

[[nodiscard]] std::span<const ReportRow> MonthlyReports();

}  // namespace pstolvane1
