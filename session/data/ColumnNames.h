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
  explicit ColumnNames(const std::vector<ColumnInfo>& columns);

  // The column's number, the first where several have the name; -1 when none has it.
  [[nodiscard]] int Find(std::string_view name) const;
  // The next number goes to the name. The columns are those of the constructor, one longer.
  void Add(std::string_view name);

 private:
  struct Slot {
    std::uint64_t hash;
    int column;  // -1: free
  };
  void Insert(std::uint64_t hash, int column);

  const std::vector<ColumnInfo>* columns_;
  std::vector<Slot> slots_;  // a power of two, at most half full
  int count_ = 0;
};

}  // namespace pstolvane1
