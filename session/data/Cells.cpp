#include "session/data/Cells.h"

#include <optional>
#include <string>

#include "session/data/Error.h"
#include "session/data/Number.h"
#include "session/data/Recordset.h"
#include "session/data/RecordsetAccess.h"
#include "session/data/TextFold.h"

namespace pstolvane1 {

namespace {

std::string Told(const ColumnInfo& column) { return "the column \"" + column.name + "\""; }

[[noreturn]] void RaiseMismatch(CellPlace cell, std::string_view wanted) {
  throw Error(ErrorNumber::kTypeMismatch,
              Told(cell.store.Column(cell.column)) + " cannot be read as " + std::string(wanted));
}

// The column's type, once it is known to be there.
DataType TypeOf(CellPlace cell) {
  if (static_cast<std::size_t>(cell.column) >= cell.store.Columns().size()) {
    throw Error(ErrorNumber::kNoSuchColumn,
                "the rowset has no column number " + std::to_string(cell.column));
  }
  return cell.store.Column(cell.column).type;
}

// A cell of a column that is there, once it is known not to be Null.
RowStore::Place PresentAt(CellPlace cell) {
  const RowStore::Place at = cell.store.At(cell.row);
  if (at.chunk->IsNull(static_cast<std::size_t>(cell.column), at.row)) {
    throw Error(ErrorNumber::kInvalidUseOfNull,
                Told(cell.store.Column(cell.column)) + " is Null in this row");
  }
  return at;
}

// T is the storage type of the column.
template <typename T>
T Stored(CellPlace cell, RowStore::Place at) {
  return at.chunk->Get<T>(static_cast<std::size_t>(cell.column), at.row);
}

Currency MoneyOf(CellPlace cell, RowStore::Place at) {
  return Currency::FromTenThousandths(Stored<std::int64_t>(cell, at));
}

Number NumberOf(CellPlace cell, DataType type, RowStore::Place at) {
  switch (type) {
    case adBoolean:
      return std::int32_t{Stored<std::int16_t>(cell, at)};
    case adInteger:
      return Stored<std::int32_t>(cell, at);
    case adBigInt:
      return Stored<std::int64_t>(cell, at);
    case adSingle:
      return static_cast<double>(Stored<float>(cell, at));
    case adCurrency:
      return MoneyOf(cell, at);
    case adDouble:
    case adDate:
      return Stored<double>(cell, at);
    default:
      break;
  }
  const std::string_view text = at.chunk->Text(static_cast<std::size_t>(cell.column), at.row);
  const std::optional<Number> number = Number::FromText(text);
  if (!number) {
    throw Error(ErrorNumber::kTypeMismatch, Told(cell.store.Column(cell.column)) +
                                                " holds the text \"" + std::string(text) +
                                                "\", which is not a number");
  }
  return *number;
}

// Cells of the types that direct knows are read at once, all others by way of a Number.
template <typename Direct, typename Convert>
auto ReadNumber(CellPlace cell, const Direct& direct, const Convert& convert) {
  const DataType type = TypeOf(cell);
  if (type == adChapter) RaiseMismatch(cell, "a number");
  const RowStore::Place at = PresentAt(cell);
  if (const auto value = direct(type, at)) return *value;
  const Number number = NumberOf(cell, type, at);
  try {
    return convert(number);
  } catch (const Error& error) {
    throw error.While("reading " + Told(cell.store.Column(cell.column)));
  }
}

// Of cells that are stored as T in a column of one type alone.
template <typename T, typename Convert>
T ReadOwn(CellPlace cell, DataType own, const Convert& convert) {
  const auto direct = [&](DataType type, RowStore::Place at) {
    return type == own ? std::optional(Stored<T>(cell, at)) : std::nullopt;
  };
  return ReadNumber(cell, direct, convert);
}

bool IsText(DataType type) { return type == adBSTR || type == adVarChar; }

void CheckLength(const ColumnInfo& column, std::string_view text) {
  if (column.type != adVarChar || column.defined_size <= 0) return;
  const auto limit = static_cast<std::size_t>(column.defined_size);
  if (text.size() <= limit) return;
  const std::size_t length = CountCharacters(text);
  if (length <= limit) return;
  throw Error(ErrorNumber::kArgumentOutOfRange,
              "a text of " + std::to_string(length) + " characters does not fit into " +
                  Told(column) + ", which takes " + std::to_string(limit));
}

void WriteConverted(Chunk& chunk, std::size_t column, std::size_t row, DataType type,
                    const Variant& value) {
  switch (type) {
    case adBoolean:
      return chunk.Set(column, row, value.ToBoolean().Raw());
    case adInteger:
      return chunk.Set(column, row, value.ToInt32());
    case adBigInt:
      return chunk.Set(column, row, value.ToInt64());
    case adSingle:
      return chunk.Set(column, row, value.ToSingle());
    case adDouble:
      return chunk.Set(column, row, value.ToDouble());
    case adCurrency:
      return chunk.Set(column, row, value.ToCurrency().TenThousandths());
    case adDate:
      return chunk.Set(column, row, value.ToDate().Serial());
    default:
      throw Error(ErrorNumber::kTypeMismatch, "a chapter cannot be written");
  }
}

}  // namespace

bool IsNullAt(CellPlace cell) {
  return TypeOf(cell) != adChapter && cell.store.IsNull(cell.column, cell.row);
}

std::int32_t Int32At(CellPlace cell) {
  return ReadOwn<std::int32_t>(cell, adInteger, [](Number n) { return n.ToInt32(); });
}
std::int64_t Int64At(CellPlace cell) {
  const auto direct = [&](DataType type, RowStore::Place at) -> std::optional<std::int64_t> {
    if (type == adBigInt) return Stored<std::int64_t>(cell, at);
    if (type == adInteger) return Stored<std::int32_t>(cell, at);
    return std::nullopt;
  };
  return ReadNumber(cell, direct, [](Number n) { return n.ToInt64(); });
}
float SingleAt(CellPlace cell) {
  return ReadOwn<float>(cell, adSingle, [](Number n) { return n.ToSingle(); });
}
double DoubleAt(CellPlace cell) {
  const auto direct = [&](DataType type, RowStore::Place at) -> std::optional<double> {
    if (type == adDouble) return Stored<double>(cell, at);
    if (type == adCurrency) return MoneyOf(cell, at).ToDouble();
    return std::nullopt;
  };
  return ReadNumber(cell, direct, [](Number n) { return n.ToDouble(); });
}
Currency MoneyAt(CellPlace cell) {
  const auto direct = [&](DataType type, RowStore::Place at) {
    return type == adCurrency ? std::optional(MoneyOf(cell, at)) : std::nullopt;
  };
  return ReadNumber(cell, direct, [](Number n) { return n.ToCurrency(); });
}

Date DateAt(CellPlace cell) {
  const DataType type = TypeOf(cell);
  if (type == adChapter || type == adBoolean) RaiseMismatch(cell, "a date");
  const RowStore::Place at = PresentAt(cell);
  if (type == adDate) return Date(Stored<double>(cell, at));
  try {
    return ValueAt(cell).ToDate();
  } catch (const Error& error) {
    throw error.While("reading " + Told(cell.store.Column(cell.column)));
  }
}

bool FlagAt(CellPlace cell) {
  const DataType type = TypeOf(cell);
  if (type == adChapter || type == adDate) RaiseMismatch(cell, "a flag");
  const RowStore::Place at = PresentAt(cell);
  if (type == adBoolean) return Stored<std::int16_t>(cell, at) != 0;
  try {
    return ValueAt(cell).ToBoolean().IsSet();
  } catch (const Error& error) {
    throw error.While("reading " + Told(cell.store.Column(cell.column)));
  }
}

std::string_view TextAt(CellPlace cell) {
  if (!IsText(TypeOf(cell))) RaiseMismatch(cell, "text");
  const RowStore::Place at = cell.store.At(cell.row);
  const auto column = static_cast<std::size_t>(cell.column);
  return at.chunk->IsNull(column, at.row) ? std::string_view("") : at.chunk->Text(column, at.row);
}

RecordsetPtr ChapterAt(CellPlace cell) {
  if (TypeOf(cell) != adChapter) RaiseMismatch(cell, "a rowset");
  const auto& chapters = cell.store.Chapters(cell.column);
  // While the parent is still being fetched its children may not be known yet.
  if (!chapters->child) {
    return RecordsetAccess::Over(
        std::make_shared<RowStore>(std::vector<ColumnInfo>(), RowStore::Kind::kQuery));
  }
  return RecordsetAccess::Over(chapters->child, chapters->Of(cell.row), chapters);
}

Variant ValueAt(CellPlace cell) {
  const DataType type = TypeOf(cell);
  if (type == adChapter) return ChapterAt(cell);
  const RowStore::Place at = cell.store.At(cell.row);
  const auto column = static_cast<std::size_t>(cell.column);
  if (at.chunk->IsNull(column, at.row)) return Null;
  switch (type) {
    case adBoolean:
      return Boolean(Stored<std::int16_t>(cell, at));
    case adInteger:
      return Stored<std::int32_t>(cell, at);
    case adBigInt:
      return Stored<std::int64_t>(cell, at);
    case adSingle:
      return Stored<float>(cell, at);
    case adDouble:
      return Stored<double>(cell, at);
    case adCurrency:
      return MoneyOf(cell, at);
    case adDate:
      return Date(Stored<double>(cell, at));
    default:
      return at.chunk->Text(column, at.row);
  }
}

void Write(RowStore& store, int column, std::uint32_t row, const Variant& value) {
  const DataType type = TypeOf({store, column, row});
  const std::string* text = value.TextIfAny();
  if (IsText(type) && text != nullptr) return WriteText(store, column, row, *text);
  const RowStore::Place at = store.At(row);
  const auto cell = static_cast<std::size_t>(column);
  try {
    if (type != adChapter && (value.IsNull() || value.IsEmpty())) {
      at.chunk->SetNull(cell, at.row);
    } else if (IsText(type)) {
      WriteText(store, column, row, value.ToText());
    } else {
      WriteConverted(*at.chunk, cell, at.row, type, value);
    }
  } catch (const Error& error) {
    throw error.While("writing " + Told(store.Column(column)));
  }
}

void WriteText(RowStore& store, int column, std::uint32_t row, std::string_view text) {
  if (!IsText(TypeOf({store, column, row}))) return Write(store, column, row, Variant(text));
  const RowStore::Place at = store.At(row);
  CheckLength(store.Column(column), text);
  at.chunk->SetText(static_cast<std::size_t>(column), at.row, text);
}

void WriteFrom(RowStore& store, int column, std::uint32_t row, CellPlace from) {
  if (IsText(TypeOf(from)) && !IsNullAt(from)) {
    WriteText(store, column, row, TextAt(from));
  } else {
    Write(store, column, row, ValueAt(from));
  }
}

}  // namespace pstolvane1
