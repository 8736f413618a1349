// What a month ledger is about, in query texts: an item, an item in a godown, or a group.
#pragma once

#include <string>

#include "monthly/MonthlyArguments.h"

namespace pstolvane1 {

// A restriction of a query, for its FROM and its WHERE.
struct QueryPart {
  std::string joins;      // " inner join ..."
  std::string condition;  // never ""
};

enum class Below { kNothing, kAsAsked };  // the groups directly under the named one

// Of a query on Godownitem1. Items1 is joined: deleted items have no month ledger.
[[nodiscard]] QueryPart MovementsOf(const MonthlyArguments& arguments,
                                    Below below = Below::kAsAsked);
// Of a query whose table has the items under that name, as "standardrate1.item_id"; Items1 is
// joined. A ledger of a godown may be about any item.
[[nodiscard]] QueryPart ItemsOf(const MonthlyArguments& arguments, std::string_view item_id,
                                Below below = Below::kAsAsked);

}  // namespace pstolvane1
