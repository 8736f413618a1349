// The unit in which rows are stored and travel from an engine to a rowset: typed columns.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "session/data/ColumnInfo.h"
#include "session/data/Currency.h"
#include "session/data/DataType.h"
#include "session/data/Date.h"
#include "session/data/TextArena.h"
#include "session/data/Variant.h"

namespace pstolvane1 {

// Bytes of one cell of a type: Integer int32, Single float, Double double, Currency int64
// ten-thousandths, Date double serial, Boolean int16, BigInt int64, text TextRef, chapter
// nothing (its rows are the store's business). Error 3001 for a type that no column can have.
[[nodiscard]] std::size_t StorageWidth(DataType type);

// A fixed number of rows of the same columns. Cells begin as Null; a column in which all of them
// still are takes a bit a row. One thread writes it, then it is handed on whole; it is never shared
// between threads while it is written.
class Chunk {
 public:
  static constexpr std::size_t kRows = 4096;

  explicit Chunk(const std::vector<ColumnInfo>& columns, std::size_t capacity = kRows);

  [[nodiscard]] std::size_t RowCount() const { return rows_; }
  [[nodiscard]] std::size_t Capacity() const { return capacity_; }
  [[nodiscard]] bool Full() const { return rows_ == capacity_; }
  [[nodiscard]] std::size_t Columns() const { return columns_.size(); }

  // Adds a row of Nulls and gives its number in the chunk. Not when it is full.
  std::size_t AddRow() { return rows_++; }
  // Room for more rows, for a chunk that begins small. Views of its texts stay valid.
  void Reserve(std::size_t capacity);

  [[nodiscard]] bool IsNull(std::size_t column, std::size_t row) const {
    return ((columns_[column].present[row >> 6] >> (row & 63)) & 1U) == 0;
  }
  void SetNull(std::size_t column, std::size_t row) {
    columns_[column].present[row >> 6] &= ~(std::uint64_t{1} << (row & 63));
  }
  // T is the storage type of the column; nothing is checked.
  template <typename T>
  [[nodiscard]] T Get(std::size_t column, std::size_t row) const {
    return Values<T>(column)[row];
  }
  template <typename T>
  void Set(std::size_t column, std::size_t row, T value) {
    Column& to = columns_[column];
    if (to.values == nullptr) MakeRoom(to);
    static_cast<T*>(static_cast<void*>(to.values.get()))[row] = value;
    to.present[row >> 6] |= std::uint64_t{1} << (row & 63);
  }
  // The text stays where it is until the chunk goes; a view of it stays valid as long.
  [[nodiscard]] std::string_view Text(std::size_t column, std::size_t row) const {
    return texts_.At(Get<TextRef>(column, row));
  }
  // A text that repeats the one written last into the column takes no room of its own.
  void SetText(std::size_t column, std::size_t row, std::string_view text);

  // A whole column, for scans: the cells (those that are Null hold anything), and a bit per row
  // that is 1 where the cell is not Null.
  template <typename T>
  [[nodiscard]] const T* Values(std::size_t column) const {
    return static_cast<const T*>(static_cast<const void*>(columns_[column].readable));
  }
  [[nodiscard]] const std::uint64_t* Present(std::size_t column) const {
    return columns_[column].present.get();
  }

  // What the chunk holds in memory, text included.
  [[nodiscard]] std::size_t Bytes() const;

 private:
  struct Column {
    std::size_t width;
    std::unique_ptr<std::byte[]> values;  // null before the first write
    const std::byte* readable;            // the values, or zeros in their stead
    std::unique_ptr<std::uint64_t[]> present;
    TextRef last{};  // the text that was written last
  };

  void MakeRoom(Column& column) const;

  std::size_t rows_ = 0;
  std::size_t capacity_;
  std::vector<Column> columns_;
  TextArena texts_;
};

}  // namespace pstolvane1
