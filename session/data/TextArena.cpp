#include "session/data/TextArena.h"

#include <cstring>
#include <limits>

#include "session/data/Error.h"

namespace pstolvane1 {

std::uint32_t TextArena::AddBlock(std::size_t bytes) {
  const std::size_t count = (bytes + kSlotBytes - 1) >> kSlotBits;
  constexpr std::size_t kMaxSlots =
      (std::size_t{std::numeric_limits<std::uint32_t>::max()} + 1) >> kSlotBits;
  if (count > kMaxSlots || slots_.size() > kMaxSlots - count) {
    throw Error(ErrorNumber::kOverflow, "the texts of a block of rows take more than 4 GiB");
  }
  const auto offset = static_cast<std::uint32_t>(slots_.size() << kSlotBits);
  slots_.reserve(slots_.size() + count);
  blocks_.push_back(std::make_unique_for_overwrite<char[]>(bytes));
  for (std::size_t i = 0; i < count; ++i) {
    slots_.push_back(blocks_.back().get() + (i << kSlotBits));
  }
  bytes_ += bytes;
  return offset;
}

TextRef TextArena::Add(std::string_view text) {
  if (text.empty()) return {0, 0};
  std::uint32_t offset = 0;
  if (text.size() > kSlotBytes) {
    offset = AddBlock(text.size());
  } else {
    if (text.size() > open_room_) {
      open_offset_ = AddBlock(kSlotBytes);
      open_room_ = kSlotBytes;
    }
    offset = open_offset_;
    open_offset_ += static_cast<std::uint32_t>(text.size());
    open_room_ -= text.size();
  }
  std::memcpy(slots_[offset >> kSlotBits] + (offset & (kSlotBytes - 1)), text.data(), text.size());
  return {offset, static_cast<std::uint32_t>(text.size())};
}

}  // namespace pstolvane1
