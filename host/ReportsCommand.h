// stolvane reports: what can be asked for.
#pragma once

namespace pstolvane1::host {

// Every operation with its arguments; as JSON with types and defaults.
void ListReports(bool json);

}  // namespace pstolvane1::host
