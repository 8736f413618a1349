// Rowset arguments that the books themselves can fill.
#pragma once

#include <string_view>

#include "automation/Operation.h"

namespace pstolvane1::automation {

// The SELECT that gives a rowset argument the names it needs, of all items or ledgers of the books;
// "" for what is no rowset, and for one that the operation does not look at.
[[nodiscard]] std::string_view SelectOfTheBooks(const Argument& argument);

}  // namespace pstolvane1::automation
