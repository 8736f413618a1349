// The restrictions of SetFilter in queries of movements and documents. Pure texts.
#pragma once

#include <string>
#include <string_view>

#include "session/FilterClauses.h"

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

}  // namespace pstolvane1
