// A relation as one line of text, for case files and for failures.
#pragma once

#include <string>

#include "tests/sql/model/Tables.h"

namespace pstolvane1::sql::model {

// "whole, text: 1, 'a' | null, 'b'"; money and decimals with all their places, "no rows" for none.
[[nodiscard]] std::string Show(const Relation& relation);
[[nodiscard]] std::string Show(const Value& value, const Kind& kind);

}  // namespace pstolvane1::sql::model
