// All report types that the dispatcher knows, from every family.
#pragma once

#include <span>

#include "session/ReportRow.h"

namespace pstolvane1 {

[[nodiscard]] std::span<const ReportRow> AllReports();

}  // namespace pstolvane1
