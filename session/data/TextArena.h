// Where the text of a chunk's cells lies.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>
#include <vector>

#include "session/data/NeedsCpp20.h"

namespace pstolvane1 {

// A text's place in its arena, from 1. 0 is the empty text.
struct TextRef {
  std::uint32_t place = 0;
};

// Texts laid one behind another in blocks that never move, so that a view of one stays valid until
// the arena goes. Nothing is taken back before that. A text's length stands before it, in a byte
// for all but long ones, so that a cell holds its place alone.
class TextArena {
 public:
  // Error 6 beyond 4 GiB.
  [[nodiscard]] TextRef Add(std::string_view text);
  [[nodiscard]] std::string_view At(TextRef ref) const {
    if (ref.place == 0) return "";
    const char* const length = ByteAt(ref.place - 1);
    const auto in_a_byte = static_cast<unsigned char>(*length);
    if (in_a_byte != kLong) return {length + 1, in_a_byte};
    std::uint32_t size = 0;
    std::memcpy(&size, length + 1, sizeof(size));
    return {length + 1 + sizeof(size), size};
  }
  [[nodiscard]] std::size_t Bytes() const { return bytes_; }

 private:
  static constexpr unsigned kSlotBits = 14;
  static constexpr std::size_t kSlotBytes = std::size_t{1} << kSlotBits;
  // The first byte of a length that takes the four behind it. Shorter ones are a byte alone.
  static constexpr unsigned char kLong = 255;

  [[nodiscard]] char* ByteAt(std::uint32_t offset) const {
    return slots_[offset >> kSlotBits] + (offset & (kSlotBytes - 1));
  }

  // Takes the next slots for a block of that many bytes and gives the offset of its first byte.
  std::uint32_t AddBlock(std::size_t bytes);

  // An offset's upper bits choose a slot. A text longer than a slot has a block of its own, which
  // several slots in a row point into.
  std::vector<char*> slots_;
  std::vector<std::unique_ptr<char[]>> blocks_;
  std::uint32_t open_offset_ = 0;  // where the next short text goes
  std::size_t open_room_ = 0;
  std::size_t bytes_ = 0;
};

}  // namespace pstolvane1
