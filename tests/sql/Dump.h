// A tree spelled out without any rule of precedence: two trees are the same when their dumps are.
#pragma once

#include <string>

#include "session/sql/Ast.h"

namespace pstolvane1::sql {

// "(+ 1 (* a.b 2))"; places, ids and heights are left out.
[[nodiscard]] std::string Dump(const Expr& expression);
[[nodiscard]] std::string Dump(const Query& query);

}  // namespace pstolvane1::sql
