#include "automation/ArrowColumns.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string_view>

#include "automation/CLiving.h"

namespace pstolvane1::automation {
namespace {

// 1 January 1970, from which Arrow counts days, as a date's serial.
constexpr double kEpoch = 25569;

const char* FormatOf(DataType type) {
  switch (type) {
    case adInteger:
      return "i";
    case adBigInt:
      return "l";
    case adSingle:
      return "f";
    case adDouble:
      return "g";
    case adCurrency:
      return "d:19,4";
    case adDate:
      return "tdD";
    case adBoolean:
      return "b";
    case adChapter:
      return "+l";
    default:
      return "u";
  }
}

// --- Schemas

// What a schema points to, for as long as it is not released. The children are released one by
// one, because a consumer may have taken some of them away.
struct SchemaParts {
  Living living;
  std::string format, name;
  std::vector<ArrowSchema> children;
  std::vector<ArrowSchema*> pointers;
};

void ReleaseSchema(ArrowSchema* schema) {
  const std::unique_ptr<SchemaParts> parts(static_cast<SchemaParts*>(schema->private_data));
  for (ArrowSchema& child : parts->children) {
    if (child.release != nullptr) child.release(&child);
  }
  schema->release = nullptr;
}

SchemaParts& StartSchema(ArrowSchema& schema, std::string_view format, std::string_view name,
                         std::size_t children) {
  schema = {};
  auto parts = std::make_unique<SchemaParts>();
  parts->format = format;
  parts->name = name;
  parts->children.resize(children);
  for (ArrowSchema& child : parts->children) parts->pointers.push_back(&child);
  schema.format = parts->format.c_str();
  schema.name = parts->name.c_str();
  schema.flags = ARROW_FLAG_NULLABLE;
  schema.n_children = static_cast<std::int64_t>(children);
  schema.children = parts->pointers.data();
  schema.release = &ReleaseSchema;
  schema.private_data = parts.get();
  return *parts.release();
}

void FillStruct(const ArrowColumns& columns, std::string_view name, ArrowSchema& schema) {
  SchemaParts& parts = StartSchema(schema, "+s", name, columns.columns.size());
  for (std::size_t i = 0; i < columns.columns.size(); ++i) {
    const ArrowColumns::Column& column = columns.columns[i];
    SchemaParts& of_column = StartSchema(parts.children[i], FormatOf(column.type), column.name,
                                         column.type == adChapter ? 1 : 0);
    if (column.type == adChapter) FillStruct(*column.chapter, "item", of_column.children.front());
  }
}

// --- Arrays

// What an array points to, for as long as it is not released.
struct ArrayParts {
  Living living;
  std::vector<std::vector<std::uint64_t>> buffers;  // in words, which aligns every type
  std::vector<const void*> buffer_pointers;
  std::vector<ArrowArray> children;
  std::vector<ArrowArray*> pointers;
};

void ReleaseArray(ArrowArray* array) {
  const std::unique_ptr<ArrayParts> parts(static_cast<ArrayParts*>(array->private_data));
  for (ArrowArray& child : parts->children) {
    if (child.release != nullptr) child.release(&child);
  }
  array->release = nullptr;
}

// An array that is being made. Buffers come in the order in which Arrow wants them.
class ArrayMaker {
 public:
  ArrayMaker(ArrowArray& array, std::size_t length, std::size_t buffers, std::size_t children)
      : array_(array) {
    auto parts = std::make_unique<ArrayParts>();
    parts->buffers.reserve(buffers);
    parts->buffer_pointers.resize(buffers, nullptr);
    parts->children.resize(children);
    for (ArrowArray& child : parts->children) parts->pointers.push_back(&child);
    array = {};
    array.length = static_cast<std::int64_t>(length);
    array.n_buffers = static_cast<std::int64_t>(buffers);
    array.buffers = parts->buffer_pointers.data();
    array.n_children = static_cast<std::int64_t>(children);
    array.children = parts->pointers.data();
    array.release = &ReleaseArray;
    array.private_data = parts_ = parts.release();
  }

  // The next buffer, of zeros.
  template <typename T>
  T* Buffer(std::size_t count) {
    // One word at least: an empty buffer has an address as well.
    const std::size_t words = count * sizeof(T) / sizeof(std::uint64_t) + 1;
    std::vector<std::uint64_t>& buffer = parts_->buffers.emplace_back(words);
    parts_->buffer_pointers[parts_->buffers.size() - 1] = buffer.data();
    return static_cast<T*>(static_cast<void*>(buffer.data()));
  }
  ArrowArray& Child(std::size_t number) { return parts_->children[number]; }

  // The buffer that says which cells are there, a bit a row.
  void Validity(const std::vector<Recordset::Row>& rows, ColumnHandle column) {
    auto* bits = Buffer<std::uint8_t>(rows.size() / 8 + 1);
    for (std::size_t i = 0; i < rows.size(); ++i) {
      if (rows[i].IsNull(column)) {
        ++array_.null_count;
      } else {
        SetBit(bits, i);
      }
    }
  }
  static void SetBit(std::uint8_t* bits, std::size_t number) {
    bits[number / 8] = static_cast<std::uint8_t>(bits[number / 8] | 1U << number % 8);
  }

 private:
  ArrowArray& array_;
  ArrayParts* parts_;  // the array's
};

// The cells of a column whose values have a fixed width.
template <typename T, typename Read>
void FillValues(ArrayMaker& maker, const std::vector<Recordset::Row>& rows, ColumnHandle column,
                Read&& read) {
  T* values = maker.Buffer<T>(rows.size());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (!rows[i].IsNull(column)) values[i] = read(rows[i]);
  }
}

// Low word first.
struct Decimal128 {
  std::int64_t low, high;
};

void FillTexts(ArrayMaker& maker, const std::vector<Recordset::Row>& rows, ColumnHandle column) {
  auto* ends = maker.Buffer<std::int32_t>(rows.size() + 1);
  std::string all;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (!rows[i].IsNull(column)) all += rows[i].Text(column);
    if (all.size() > std::numeric_limits<std::int32_t>::max()) {
      throw Error(ErrorNumber::kOverflow, "the texts of a batch of " + std::to_string(rows.size()) +
                                              " rows take more than 2 GiB");
    }
    ends[i + 1] = static_cast<std::int32_t>(all.size());
  }
  std::copy(all.begin(), all.end(), maker.Buffer<char>(all.size()));
}

void FillFlags(ArrayMaker& maker, const std::vector<Recordset::Row>& rows, ColumnHandle column) {
  auto* bits = maker.Buffer<std::uint8_t>(rows.size() / 8 + 1);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (!rows[i].IsNull(column) && rows[i].Flag(column)) ArrayMaker::SetBit(bits, i);
  }
}

void FillChapters(ArrayMaker& maker, const std::vector<Recordset::Row>& rows, ColumnHandle column,
                  const ArrowColumns& columns) {
  auto* ends = maker.Buffer<std::int32_t>(rows.size() + 1);
  std::vector<RecordsetPtr> kept;
  std::vector<Recordset::Row> children;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (!rows[i].IsNull(column)) {
      const RecordsetPtr& chapter = kept.emplace_back(rows[i].Chapter(column));
      for (const Recordset::Row child : chapter->Rows()) children.push_back(child);
    }
    ends[i + 1] = static_cast<std::int32_t>(children.size());
  }
  MakeArray(columns, children, maker.Child(0));
}

void FillColumn(const ArrowColumns::Column& column, ColumnHandle handle,
                const std::vector<Recordset::Row>& rows, ArrowArray& array) {
  const bool is_text = column.type == adVarChar || column.type == adBSTR;
  const bool is_chapter = column.type == adChapter;
  ArrayMaker maker(array, rows.size(), is_text ? 3 : 2, is_chapter ? 1 : 0);
  maker.Validity(rows, handle);
  using Row = Recordset::Row;
  switch (column.type) {
    case adInteger:
      FillValues<std::int32_t>(maker, rows, handle,
                               [&](const Row& row) { return row.Int32(handle); });
      break;
    case adBigInt:
      FillValues<std::int64_t>(maker, rows, handle,
                               [&](const Row& row) { return row.Int64(handle); });
      break;
    case adSingle:
      FillValues<float>(maker, rows, handle, [&](const Row& row) { return row.Single(handle); });
      break;
    case adDouble:
      FillValues<double>(maker, rows, handle, [&](const Row& row) { return row.Double(handle); });
      break;
    case adCurrency:
      FillValues<Decimal128>(maker, rows, handle, [&](const Row& row) {
        const std::int64_t count = row.Money(handle).TenThousandths();
        return Decimal128{count, count < 0 ? -1 : 0};
      });
      break;
    case adDate:
      FillValues<std::int32_t>(maker, rows, handle, [&](const Row& row) {
        return static_cast<std::int32_t>(std::floor(row.DateOf(handle).Elapsed()) - kEpoch);
      });
      break;
    case adBoolean:
      FillFlags(maker, rows, handle);
      break;
    case adChapter:
      FillChapters(maker, rows, handle, *column.chapter);
      break;
    default:
      FillTexts(maker, rows, handle);
  }
}

// The columns of a chapter: those of the first row that has children, else of any.
std::unique_ptr<ArrowColumns> ColumnsOfChapter(const Recordset& rowset, ColumnHandle column) {
  RecordsetPtr found;
  for (const Recordset::Row row : rowset.Rows()) {
    if (row.IsNull(column)) continue;
    const RecordsetPtr chapter = row.Chapter(column);
    if (!found || chapter->RecordCount() > 0) found = chapter;
    if (chapter->RecordCount() > 0) break;
  }
  const RecordsetPtr none = Recordset::New();
  return std::make_unique<ArrowColumns>(found ? *found : *none);
}

}  // namespace

ArrowColumns::ArrowColumns(const Recordset& rowset) {
  if (rowset.State() == adStateClosed) return;
  int number = 0;
  for (const ColumnInfo& column : rowset.Columns()) {
    const auto handle = static_cast<ColumnHandle>(number++);
    columns.push_back({column.name, column.type,
                       column.type == adChapter ? ColumnsOfChapter(rowset, handle) : nullptr});
  }
}

void MakeSchema(const ArrowColumns& columns, ArrowSchema& schema) {
  try {
    FillStruct(columns, "", schema);
  } catch (...) {
    if (schema.release != nullptr) schema.release(&schema);
    throw;
  }
}

void MakeArray(const ArrowColumns& columns, const std::vector<Recordset::Row>& rows,
               ArrowArray& array) {
  ArrayMaker maker(array, rows.size(), 1, columns.columns.size());
  try {
    for (std::size_t i = 0; i < columns.columns.size(); ++i) {
      FillColumn(columns.columns[i], static_cast<ColumnHandle>(i), rows, maker.Child(i));
    }
  } catch (...) {
    array.release(&array);
    throw;
  }
}

}  // namespace pstolvane1::automation
