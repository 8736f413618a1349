// stolvane reports: what can be asked for.
#pragma once

#include <string>

#include "automation/Operation.h"

namespace pstolvane1::host {

// An operation with its arguments, over several lines.
[[nodiscard]] std::string Describe(const automation::Operation& operation);
// Every operation with its arguments; as JSON with types and defaults.
void ListReports(bool json);

}  // namespace pstolvane1::host
