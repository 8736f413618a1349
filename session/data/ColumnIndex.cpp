#include "session/data/ColumnIndex.h"

#include <algorithm>

#include "session/data/RowStore.h"

namespace pstolvane1 {

ColumnIndex::ColumnIndex(const RowStore& store, int column) : keys_(store, {column}) {
  std::vector<std::uint32_t> key_of_row(store.RowCount(), KeyTable::kNone);
  for (std::uint32_t row = 0; row < store.RowCount(); ++row) {
    if (!store.Hidden(row)) key_of_row[row] = keys_.Add(row);
  }
  starts_.assign(keys_.Count() + std::size_t{1}, 0);
  for (const std::uint32_t key : key_of_row) {
    if (key != KeyTable::kNone) ++starts_[key + std::size_t{1}];
  }
  for (std::size_t key = 1; key < starts_.size(); ++key) starts_[key] += starts_[key - 1];
  rows_.resize(starts_.back());
  std::vector<std::uint32_t> next(starts_.begin(), starts_.end() - 1);
  for (std::uint32_t row = 0; row < store.RowCount(); ++row) {
    if (key_of_row[row] != KeyTable::kNone) rows_[next[key_of_row[row]]++] = row;
  }
}

std::span<const std::uint32_t> ColumnIndex::Find(const CellKey& value) const {
  const std::uint32_t key = keys_.Find({&value, 1});
  if (key == KeyTable::kNone) return {};
  if (!grown_.empty()) {
    const auto grown = grown_.find(key);
    if (grown != grown_.end()) return grown->second;
  }
  return std::span(rows_).subspan(starts_[key], starts_[key + std::size_t{1}] - starts_[key]);
}

void ColumnIndex::Add(std::uint32_t row) {
  const std::uint32_t key = keys_.Add(row);
  auto [grown, is_new] = grown_.try_emplace(key);
  std::vector<std::uint32_t>& rows = grown->second;
  if (is_new && key + std::size_t{1} < starts_.size()) {
    rows.assign(rows_.begin() + starts_[key], rows_.begin() + starts_[key + std::size_t{1}]);
  }
  rows.insert(std::lower_bound(rows.begin(), rows.end(), row), row);
}

std::size_t ColumnIndex::Bytes() const {
  std::size_t bytes =
      keys_.Bytes() + (starts_.capacity() + rows_.capacity()) * sizeof(std::uint32_t);
  for (const auto& [key, rows] : grown_) {
    bytes += sizeof(decltype(grown_)::value_type) + rows.capacity() * sizeof(std::uint32_t);
  }
  return bytes;
}

}  // namespace pstolvane1
