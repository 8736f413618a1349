// The groups that stock is listed under, in query texts.
#pragma once

#include <string>
#include <string_view>

#include "session/Launch.h"
#include "session/ValuationReports.h"

namespace pstolvane1 {

// The groups of a tree as ItemCategory_Id, RelatedTo and Categoryname, by name.
[[nodiscard]] std::string ComposeGroupQuery(StockTree tree);

// A statement's main query reads the group of a key as "items1.itemcategory_id"; item by item it
// reads none.
inline constexpr std::string_view kGroupOfKey = "items1.itemcategory_id";
[[nodiscard]] std::string SelectGroup(StockTree tree);  // with a comma behind, or ""
// The tree's own column for the category's, wherever a query names that.
[[nodiscard]] ColumnSwap GroupSwap(StockTree tree);

}  // namespace pstolvane1
