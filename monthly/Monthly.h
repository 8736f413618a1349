// The entries of the month ledgers.
#pragma once

#include "monthly/MonthlyArguments.h"
#include "session/ReportFrame.h"

namespace pstolvane1 {

// Launches the ledger of the method: nullptr, with nothing run or written, for one that has none.
// Error 3001 that names the group, before anything is kept or launched, where a group is asked for
// with those below it and stands below itself.
RecordsetPtr Monthly(ReportFrame& frame, MonthlyArguments arguments, Boolean blnReport);

}  // namespace pstolvane1
