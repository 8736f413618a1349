#include "session/data/Chunk.h"

#include <algorithm>
#include <cstring>

#include "session/data/Error.h"

namespace pstolvane1 {

namespace {

std::size_t Words(std::size_t rows) { return (rows + 63) / 64; }

}  // namespace

std::size_t StorageWidth(DataType type) {
  switch (type) {
    case adBoolean:
      return sizeof(std::int16_t);
    case adInteger:
    case adSingle:
      return sizeof(std::int32_t);
    case adDouble:
    case adCurrency:
    case adDate:
    case adBigInt:
    case adBSTR:
    case adVarChar:
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
    const std::size_t width = StorageWidth(column.type);
    columns_.push_back({width, std::make_unique_for_overwrite<std::byte[]>(capacity * width),
                        std::make_unique<std::uint64_t[]>(Words(capacity))});
  }
}

void Chunk::Reserve(std::size_t capacity) {
  if (capacity <= capacity_) return;
  for (Column& column : columns_) {
    auto values = std::make_unique_for_overwrite<std::byte[]>(capacity * column.width);
    auto present = std::make_unique<std::uint64_t[]>(Words(capacity));
    std::memcpy(values.get(), column.values.get(), rows_ * column.width);
    std::copy_n(column.present.get(), Words(rows_), present.get());
    column.values = std::move(values);
    column.present = std::move(present);
  }
  capacity_ = capacity;
}

void Chunk::SetText(std::size_t column, std::size_t row, std::string_view text) {
  if (row > 0 && !IsNull(column, row - 1) && Text(column, row - 1) == text) {
    Set(column, row, Get<TextRef>(column, row - 1));
    return;
  }
  // A cell that is written anew with what it holds takes no room either.
  if (!IsNull(column, row) && Text(column, row) == text) return;
  Set(column, row, texts_.Add(text));
}

std::size_t Chunk::Bytes() const {
  std::size_t bytes = sizeof(Chunk) + texts_.Bytes();
  for (const Column& column : columns_) {
    bytes += sizeof(Column) + capacity_ * column.width + Words(capacity_) * sizeof(std::uint64_t);
  }
  return bytes;
}

}  // namespace pstolvane1
