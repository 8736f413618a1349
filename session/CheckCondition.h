// For the developer of a host: what is wrong with a condition, told without any books.
#pragma once

#include <string>
#include <string_view>

#include "session/data/NeedsCpp20.h"

namespace pstolvane1 {

// "" for a condition that a report can take, else one sentence with the place in the text: a name
// that the tables do not have, a value of another kind, an end or a bracket that is missing or too
// much, a comment sign, or an Or outside brackets, which would weaken the conditions beside it.
// The tables are those of the reference schema that the condition may name, with commas between:
// "Desr1, DesrDetails1". The text is read as reports read it: lower-cased, with "#", "true",
// "false" and "-1" replaced; places count in that form.
[[nodiscard]] std::string CheckCondition(std::string_view tables, std::string_view text);

}  // namespace pstolvane1
