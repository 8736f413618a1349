// Finding a column by its name.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "session/data/Chunk.h"

namespace pstolvane1 {

// A hash of the names of a rowset's columns, ignoring case. A look-up costs one pass over the name.
class ColumnNames {
 public:
  // The columns must stay as they are while this is used.
  explicit ColumnNames(const std::vector<ColumnInfo>& columns);

  // The column's number, the first where several have the name; -1 when none has it.
  [[nodiscard]] int Find(std::string_view name) const;

 private:
  struct Slot {
    std::uint64_t hash;
    int column;  // -1: free
  };
  const std::vector<ColumnInfo>* columns_;
  std::vector<Slot> slots_;  // a power of two, at most half full
};

}  // namespace pstolvane1
