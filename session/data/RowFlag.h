// Reading a flag of a row that may be Null.
#pragma once

#include "session/data/Recordset.h"

namespace pstolvane1 {

// Null is not set.
[[nodiscard]] inline bool IsSet(const Recordset::Row& row, ColumnHandle flag) {
  return !row.IsNull(flag) && row.Flag(flag);
}

}  // namespace pstolvane1
