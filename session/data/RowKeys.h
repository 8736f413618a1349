// Rows as keys: which rows have the same values in some columns.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <string_view>
#include <vector>

#include "session/data/Chunk.h"

namespace pstolvane1 {

class RowStore;

// A cell's value as a key. Two cells have the same key when their values are equal whatever their
// number types are: 5, 5.0 and 5.0000 are one key. Text ignores case, a flag is True or False. Null
// is a key of its own.
struct CellKey {
  enum class Kind : std::uint8_t { kNull, kWhole, kMoney, kFraction, kDate, kText };
  Kind kind = Kind::kNull;
  std::uint64_t bits = 0;  // of text its hash
  std::string_view text;

  [[nodiscard]] static CellKey Of(const RowStore& store, int column, std::uint32_t row);
  [[nodiscard]] static CellKey OfWhole(std::int64_t number);
  [[nodiscard]] static CellKey OfMoney(Currency money);
  [[nodiscard]] static CellKey OfNumber(double number);
  [[nodiscard]] static CellKey OfDate(Date date);
  [[nodiscard]] static CellKey OfText(std::string_view text);

  [[nodiscard]] std::uint64_t Hash() const;
  friend bool operator==(const CellKey& a, const CellKey& b);
};

// Numbers the different keys of a store's rows over some of its columns, from 0 in the order of
// their first rows. It reads the rows again, so their values must stay while it is used.
class KeyTable {
 public:
  static constexpr std::uint32_t kNone = std::numeric_limits<std::uint32_t>::max();

  KeyTable(const RowStore& store, std::vector<int> columns);

  // The number of the row's key, a new one if it is the first with it.
  std::uint32_t Add(std::uint32_t row);
  // The number of a key, or kNone. One part per column; for a join, of another store's row.
  [[nodiscard]] std::uint32_t Find(std::span<const CellKey> key) const;
  [[nodiscard]] std::uint32_t Find(const RowStore& other, std::span<const int> columns,
                                   std::uint32_t row) const;

  [[nodiscard]] std::uint32_t Count() const {
    return static_cast<std::uint32_t>(first_row_.size());
  }
  [[nodiscard]] std::uint32_t FirstRow(std::uint32_t number) const { return first_row_[number]; }
  [[nodiscard]] std::size_t Bytes() const;

 private:
  struct Slot {
    std::uint32_t tag;     // upper half of the hash
    std::uint32_t number;  // kNone: free
  };
  struct Probe {
    std::uint32_t number;
    std::size_t slot;
  };
  [[nodiscard]] Probe Look(std::span<const CellKey> key, std::uint64_t hash) const;
  [[nodiscard]] bool IsKeyOf(std::uint32_t row, std::span<const CellKey> key) const;
  // Whether equal hashes mean equal keys, so that no row need be looked at: of a single column of
  // 32-bit numbers no two values, nor one and Null, have the same hash.
  [[nodiscard]] bool HashDecides(std::span<const CellKey> key) const;
  void Grow();

  const RowStore* store_;
  std::vector<int> columns_;
  bool is_int32_;  // one column, of 32-bit numbers
  std::vector<CellKey> scratch_;
  std::vector<Slot> slots_;  // a power of two, at most half full
  std::vector<std::uint64_t> hash_;
  std::vector<std::uint32_t> first_row_;
};

}  // namespace pstolvane1
