// The report types of the free quantity and pending reports, for the dispatcher.
#pragma once

#include <span>

#include "session/ReportRow.h"

namespace pstolvane1 {

[[nodiscard]] std::span<const ReportRow> PendingReports();

}  // namespace pstolvane1
