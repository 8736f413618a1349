// A call's report as the rules of sorting know it.
#pragma once

#include "automation/Arguments.h"
#include "automation/SortText.h"

namespace pstolvane1::automation {

// One value for each slot of the operation, as Bind gives them. The report is in detail where
// blnDetailed says so, or an argument that tells one in detail has its key.
[[nodiscard]] SortedReport SortedAs(const Operation& operation, const BoundValues& values);

}  // namespace pstolvane1::automation
