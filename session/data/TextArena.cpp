#include "session/data/TextArena.h"

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
  if (text.empty()) return {};
  const auto size = static_cast<std::uint32_t>(text.size());
  const bool in_a_byte = text.size() < kLong;
  const std::size_t bytes = text.size() + 1 + (in_a_byte ? 0 : sizeof(size));
  std::uint32_t offset = 0;
  if (bytes > kSlotBytes) {
    offset = AddBlock(bytes);
  } else {
    if (bytes > open_room_) {
      open_offset_ = AddBlock(kSlotBytes);
      open_room_ = kSlotBytes;
    }
    offset = open_offset_;
    open_offset_ += static_cast<std::uint32_t>(bytes);
    open_room_ -= bytes;
  }
  char* to = ByteAt(offset);
  *to++ = static_cast<char>(in_a_byte ? text.size() : kLong);
  if (!in_a_byte) {
    std::memcpy(to, &size, sizeof(size));
    to += sizeof(size);
  }
  std::memcpy(to, text.data(), text.size());
  return {offset + 1};
}

}  // namespace pstolvane1
