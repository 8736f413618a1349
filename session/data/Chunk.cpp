#include "session/data/Chunk.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "session/data/Error.h"

namespace pstolvane1 {

namespace {

std::size_t Words(std::size_t rows) { return (rows + 63) / 64; }

// What a column that was never written reads as; its cells are all Null. A chunk of more rows than
// these does not use it.
constexpr std::size_t kWidest = sizeof(std::int64_t);
alignas(kWidest) constexpr std::array<std::byte, Chunk::kRows * kWidest> kZeros{};

}  // namespace

std::size_t StorageWidth(DataType type) {
  switch (type) {
    case adBoolean:
      return sizeof(std::int16_t);
    case adInteger:
    case adSingle:
      return sizeof(std::int32_t);
    case adBSTR:
    case adVarChar:
      return sizeof(TextRef);
    case adDouble:
    case adCurrency:
    case adDate:
    case adBigInt:
      return sizeof(std::int64_t);
    case adChapter:
      return 0;
    case adEmpty:
      break;
  }
  throw Error(ErrorNumber::kArgumentOutOfRange,
              "no column can have the type " + std::to_string(int{type}));
}

Chunk::Chunk(const std::vector<ColumnInfo>& columns, std::size_t capacity) : capacity_(capacity) {
  columns_.reserve(columns.size());
  for (const ColumnInfo& column : columns) {
    columns_.push_back({.width = StorageWidth(column.type),
                        .values = nullptr,
                        .readable = kZeros.data(),
                        .present = std::make_unique<std::uint64_t[]>(Words(capacity))});
    if (capacity > kRows) MakeRoom(columns_.back());
  }
}

void Chunk::MakeRoom(Column& column) const {
  column.values = std::make_unique_for_overwrite<std::byte[]>(capacity_ * column.width);
  column.readable = column.values.get();
}

void Chunk::Reserve(std::size_t capacity) {
  if (capacity <= capacity_) return;
  capacity_ = capacity;
  for (Column& column : columns_) {
    auto present = std::make_unique<std::uint64_t[]>(Words(capacity));
    std::copy_n(column.present.get(), Words(rows_), present.get());
    column.present = std::move(present);
    const auto values = std::move(column.values);
    if (values == nullptr && capacity <= kRows) continue;
    MakeRoom(column);
    if (values != nullptr) std::memcpy(column.values.get(), values.get(), rows_ * column.width);
  }
}

void Chunk::SetText(std::size_t column, std::size_t row, std::string_view text) {
  TextRef& last = columns_[column].last;
  if (texts_.At(last) != text) {
    // A cell that is written anew with what it holds takes no room either.
    if (!IsNull(column, row) && Text(column, row) == text) return;
    last = texts_.Add(text);
  }
  Set(column, row, last);
}

std::size_t Chunk::Bytes() const {
  std::size_t bytes = sizeof(Chunk) + texts_.Bytes();
  for (const Column& column : columns_) {
    bytes += sizeof(Column) + Words(capacity_) * sizeof(std::uint64_t);
    if (column.values != nullptr) bytes += capacity_ * column.width;
  }
  return bytes;
}

}  // namespace pstolvane1
