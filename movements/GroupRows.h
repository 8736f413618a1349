// Reads the rows of a query of groups.
#pragma once

#include <vector>

#include "session/data/Recordset.h"
#include "valuation/GroupTree.h"

namespace pstolvane1 {

// The column of a source row, and of a row of groups, that holds the id of the group whatever the
// tree.
inline constexpr std::string_view kGroupId = "ItemCategory_Id";

// The rows of ComposeGroupQuery in their order.
[[nodiscard]] std::vector<StockGroup> ReadGroups(const Recordset& groups);

}  // namespace pstolvane1
