// Puts the rows of a plan's queries together.
#pragma once

#include <cstddef>
#include <memory>

#include "session/data/QueryReader.h"
#include "session/data/RowStore.h"
#include "session/data/ShapePlan.h"

namespace pstolvane1::shape {

// Reads every query of the plan once and joins the rows in memory. The first chunk of the result
// has room for first_rows rows.
//
// Keys: numbers are equal by value whatever their types, a flag is -1 or 0, dates by value, texts
// whatever their case. A row with a Null among its keys has no children and is no child; groups
// take Null as a value like any other. Groups stand in the order of their first rows, and the rows
// of a chapter in the order of its query. Without BY all rows are one group, also when there is
// none.
//
// Aggregates pass over Nulls; of no value, and ANY of no row, they are Null, and COUNT is 0. ANY is
// the value of the first row. Of texts that are equal but for case, MIN and MAX give the first.
// Error 6 when a sum leaves its type.
[[nodiscard]] std::shared_ptr<RowStore> Join(const Plan& plan, const QueryReader& reader,
                                             std::size_t first_rows);

}  // namespace pstolvane1::shape
