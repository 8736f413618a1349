// The aggregates of shape commands.
#pragma once

#include <cstdint>
#include <span>

#include "session/data/RowStore.h"
#include "session/data/ShapePlan.h"

namespace pstolvane1::shape {

// Writes the aggregate of some rows of a chapter into a cell of the result, whose type is that of
// the plan. `rows` are numbers of the chapter's store, ascending.
void WriteAggregate(const AggregatePlan& aggregate, const RowStore& chapter,
                    std::span<const std::uint32_t> rows, RowStore::Place result);

// Copies one cell; both columns are of the same type, which is not a chapter.
void CopyCell(const RowStore& from, int column, std::uint32_t row, RowStore::Place to,
              int to_column);

}  // namespace pstolvane1::shape
