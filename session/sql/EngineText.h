// What the emitters of all engines write alike.
#pragma once

#include <string>
#include <string_view>

#include "session/sql/Ast.h"

namespace pstolvane1::sql {

[[nodiscard]] std::string QuotedName(std::string_view name);  // "name", quotes doubled
[[nodiscard]] std::string QuotedText(std::string_view text);  // 'text', quotes doubled
[[nodiscard]] std::string_view SignOf(CompareOp op);          // " <= ", with its blanks

}  // namespace pstolvane1::sql
