// Writes a tree as text of the dialect, on one line, with no more parentheses than it needs.
#pragma once

#include <string>

#include "session/sql/Ast.h"

namespace pstolvane1::sql {

// Parse(Print(x)) is the same tree as x, places and ids apart.
[[nodiscard]] std::string Print(const Query& query);
[[nodiscard]] std::string Print(const Expr& expression);
[[nodiscard]] std::string Print(const TableRef& table);

}  // namespace pstolvane1::sql
