// The lines of documents, for a host's own text output.
#pragma once

#include <string>
#include <string_view>

#include "session/ReportFrame.h"

namespace pstolvane1 {

[[nodiscard]] std::string ComposePOrderTextQuery(std::string_view strFilter);

// Leaves the report type and the fetch count alone.
[[nodiscard]] RecordsetPtr POrderTextQuery(ReportFrame& frame, std::string_view strFilter);

}  // namespace pstolvane1
