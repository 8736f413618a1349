// The index of an optimized column: the rows of each value.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <unordered_map>
#include <vector>

#include "session/data/RowKeys.h"

namespace pstolvane1 {

class RowStore;

// Made over the visible rows of a store, and kept up as rows are added. A deleted row stays in it,
// so that lists already handed out stay as they are. The store lets it go before a value of its
// column is changed.
class ColumnIndex {
 public:
  ColumnIndex(const RowStore& store, int column);

  // The rows with that value, ascending. The list is valid until a row with the same value is
  // added.
  [[nodiscard]] std::span<const std::uint32_t> Find(const CellKey& value) const;
  void Add(std::uint32_t row);

  [[nodiscard]] std::size_t Bytes() const;

 private:
  KeyTable keys_;
  // The rows of key k as it was made: rows_[starts_[k]] to rows_[starts_[k + 1] - 1].
  std::vector<std::uint32_t> starts_;
  std::vector<std::uint32_t> rows_;
  // The whole list of a key that got rows since.
  std::unordered_map<std::uint32_t, std::vector<std::uint32_t>> grown_;
};

}  // namespace pstolvane1
