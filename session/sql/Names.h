// How names are compared: tables, columns, aliases, functions and types ignore case.
#pragma once

#include <string>
#include <string_view>

namespace pstolvane1::sql {

// ASCII letters made small; everything else stays, as in the engines' own comparison of names.
[[nodiscard]] std::string FoldedName(std::string_view name);
[[nodiscard]] bool SameName(std::string_view a, std::string_view b);

}  // namespace pstolvane1::sql
