#include "session/data/ColumnNames.h"

#include <algorithm>
#include <bit>
#include <cstring>

#include "session/data/TextFold.h"

namespace pstolvane1 {

namespace {

// Setting bit 5 makes the small letters of ASCII of the large ones. It also joins a few signs,
// which costs a comparison at most.
std::uint64_t HashName(std::string_view name) {
  constexpr std::uint64_t kSmall = 0x2020202020202020U;
  constexpr std::uint64_t kBeyondAscii = 0x8080808080808080U;
  std::uint64_t hash = name.size();
  std::uint64_t seen = 0;
  for (std::size_t i = 0; i < name.size(); i += sizeof(std::uint64_t)) {
    std::uint64_t word = 0;
    std::memcpy(&word, name.data() + i, std::min(sizeof word, name.size() - i));
    seen |= word;
    hash = (hash ^ (word | kSmall)) * 0x9E3779B97F4A7C15U;
    hash ^= hash >> 32;
  }
  return (seen & kBeyondAscii) == 0 ? hash : HashFolded(name);
}

}  // namespace

ColumnNames::ColumnNames(const std::vector<ColumnInfo>& columns) : columns_(&columns) {
  slots_.resize(std::bit_ceil(columns.size() * 2 + 2), {0, -1});
  for (int column = 0; column < static_cast<int>(columns.size()); ++column) {
    const std::string_view name = columns[static_cast<std::size_t>(column)].name;
    if (Find(name) >= 0) continue;
    const std::uint64_t hash = HashName(name);
    std::size_t at = hash;
    while (slots_[at & (slots_.size() - 1)].column >= 0) ++at;
    slots_[at & (slots_.size() - 1)] = {hash, column};
  }
}

int ColumnNames::Find(std::string_view name) const {
  const std::uint64_t hash = HashName(name);
  for (std::size_t at = hash;; ++at) {
    const Slot& slot = slots_[at & (slots_.size() - 1)];
    if (slot.column < 0) return -1;
    if (slot.hash == hash &&
        EqualFolded((*columns_)[static_cast<std::size_t>(slot.column)].name, name)) {
      return slot.column;
    }
  }
}

}  // namespace pstolvane1
