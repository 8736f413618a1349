// What a month ledger is about, in query texts: an item, an item in a godown, or a group.
#pragma once

#include <string>
#include <string_view>

#include "monthly/MonthlyArguments.h"

namespace pstolvane1 {

// A restriction of a query, for its FROM and its WHERE.
struct QueryPart {
  std::string joins;      // " inner join ..."
  std::string condition;  // never ""
};

enum class Below { kNothing, kAsAsked };  // the groups directly under the named one

// The ids of a stock key in a query on Godownitem1. The item's comes from Items1, so that a group's
// movements are read in the order of their keys and need no sort.
inline constexpr std::string_view kStockKey =
    "items1.item_id , godownitem1.godown_id , godownitem1.batch_id";

// The units of Items1, joined: an item without one of them has no month ledger.
inline constexpr std::string_view kUnitJoins =
    " inner join uom1 on uom1.uom_id = items1.uom_id inner join uom1 as uomalt on uomalt.uom_id = "
    "items1.alternateuom_id";

// The movements' year, where they are compared with one. It is kept from serving as an index, by
// which SQLite would read all items of the year.
inline constexpr std::string_view kYear = "godownitem1.yearno + 0";

// Of a query on Godownitem1. Items1 is joined: deleted items have no month ledger.
[[nodiscard]] QueryPart MovementsOf(const MonthlyArguments& arguments,
                                    Below below = Below::kAsAsked);
// Of a query whose table has the items under that name, as "standardrate1.item_id"; Items1 is
// joined. A ledger of a godown may be about any item.
[[nodiscard]] QueryPart ItemsOf(const MonthlyArguments& arguments, std::string_view item_id,
                                Below below = Below::kAsAsked);

}  // namespace pstolvane1
