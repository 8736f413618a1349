// What the queries of the stock statements have in common. Pure texts.
#pragma once

#include <string>
#include <string_view>

#include "session/FilterClauses.h"
#include "session/Launch.h"
#include "session/modStolvane1.h"
#include "stock/StockArguments.h"

namespace pstolvane1 {

// SetFilter's values for a query of movements: the joins that its condition needs, and the
// condition with " and " behind it; both "" without a filter. Lower-cased.
struct MovementFilter {
  std::string join, condition;
};

// Which movements without a date, such as opening lines, the filter keeps.
enum class Undated { kDropped, kKept };

// On Godownitem1 under the name that the query gives it.
[[nodiscard]] MovementFilter FilterOfMovements(const DocumentFilter& filter, Undated undated,
                                               std::string_view movements = "godownitem1");
// On Desr1.
[[nodiscard]] MovementFilter FilterOfDocuments(const DocumentFilter& filter);

// The groups of a tree as ItemCategory_Id, RelatedTo and Categoryname, by name.
[[nodiscard]] std::string ComposeGroupQuery(StockTree tree);

// A statement's main query reads the group of a key as "items1.itemcategory_id", and groups by
// GroupColumn; item by item it reads none and both are "".
inline constexpr std::string_view kGroupOfKey = "items1.itemcategory_id";
[[nodiscard]] std::string SelectGroup(StockTree tree);   // with a comma behind
[[nodiscard]] std::string GroupByGroup(StockTree tree);  // with a comma behind
// The tree's own column for the category's, wherever a query names that.
[[nodiscard]] ColumnSwap GroupSwap(StockTree tree);

enum class StandardRates { kCosts, kAll };
// The rows of Standardrate1 that end in time, the one in force last.
[[nodiscard]] std::string ComposeStandardRates(StandardRates which, std::string_view to,
                                               std::uint8_t bytYearno);

}  // namespace pstolvane1
