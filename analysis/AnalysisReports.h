// The report types of the lists and the movement and sales analysis, for the dispatcher.
#pragma once

#include <span>

#include "session/ReportRow.h"

namespace pstolvane1 {

[[nodiscard]] std::span<const ReportRow> AnalysisReports();

}  // namespace pstolvane1
