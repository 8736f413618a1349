// The report types of the vehicle and workshop reports, for the dispatcher.
#pragma once

#include <span>

#include "session/ReportRow.h"

namespace pstolvane1 {

[[nodiscard]] std::span<const ReportRow> VehicleReports();

}  // namespace pstolvane1
