// Reads one SELECT of the dialect into a tree.
#pragma once

#include <string_view>

#include "session/sql/Ast.h"

namespace pstolvane1::sql {

// Exactly one SELECT, with UNION and ORDER BY; a ";" with nothing behind it is dropped, comments
// are skipped. Everything else, and what exceeds a limit, is error -2147217900 "line L, column C:
// ...", saying what was expected and what was found. Names, functions and types are not looked up
// here. Pure; may be called from any thread.
[[nodiscard]] Statement Parse(std::string_view text);

}  // namespace pstolvane1::sql
