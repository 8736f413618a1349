// How the front end says no: error -2147217900 with the place and the reason.
#pragma once

#include <string>
#include <string_view>

#include "session/sql/Ast.h"

namespace pstolvane1::sql {

// "line L, column C", both from 1; the column counts characters, not bytes. A place behind the end
// is the end.
[[nodiscard]] std::string PlaceText(std::string_view text, Place place);

// What stands around a place, for readers who do not see the whole text: "near ...and (where
// desr1.desr_id < 8..."; on one line.
[[nodiscard]] std::string Excerpt(std::string_view text, Place place);

// Throws the error "line L, column C: " + why, with the excerpt as its cause.
[[noreturn]] void Refuse(std::string_view text, Place place, std::string_view why);

}  // namespace pstolvane1::sql
