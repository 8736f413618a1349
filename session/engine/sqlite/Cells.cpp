#include "session/engine/sqlite/Cells.h"

#include <cmath>
#include <fmt/format.h>
#include <limits>
#include <new>
#include <sqlite3.h>
#include <string_view>

#include "session/data/Error.h"
#include "session/data/Number.h"
#include "session/engine/sqlite/Utf8.h"

namespace pstolvane1::sqlite {
namespace {

// A cell is taken from the statement once, as a value: every question to the statement itself costs
// the engine several times more than one to the value. The value lives until the next step, and the
// connection has no mutex of its own that would have to protect it.
using Value = sqlite3_value*;

// The text of a cell that is not Null. Numbers are turned into text in place, so ask for a cell's
// type before.
std::string_view TextOf(Value value) {
  const unsigned char* text = sqlite3_value_text(value);
  const int size = sqlite3_value_bytes(value);
  if (text == nullptr) throw std::bad_alloc();
  return {static_cast<const char*>(static_cast<const void*>(text)), static_cast<std::size_t>(size)};
}

[[noreturn]] void ThrowNot(Value value, std::string_view what) {
  throw Error(ErrorNumber::kTypeMismatch, fmt::format("{} is not {}", ShownCell(value), what));
}

[[noreturn]] void ThrowOutOfRange(Value value, std::string_view what) {
  throw Error(ErrorNumber::kOverflow,
              fmt::format("{} is out of range for {}", ShownCell(value), what));
}

// A whole number of 64 bits, of a cell that is no integer.
std::int64_t WholeOfOther(Value value, std::string_view what) {
  if (sqlite3_value_type(value) != SQLITE_FLOAT) ThrowNot(value, what);
  constexpr double kLimit = 9223372036854775808.0;
  const double number = sqlite3_value_double(value);
  if (number != std::trunc(number)) ThrowNot(value, what);
  if (number < -kLimit || number >= kLimit) ThrowOutOfRange(value, what);
  return static_cast<std::int64_t>(number);
}

template <typename T>
void WriteWhole(Value value, Chunk& chunk, std::size_t column, std::size_t row) {
  constexpr std::string_view kWhat =
      sizeof(T) == 4 ? "a 32-bit whole number" : "a 64-bit whole number";
  const int type = sqlite3_value_type(value);
  if (type == SQLITE_NULL) return;
  const std::int64_t number =
      type == SQLITE_INTEGER ? sqlite3_value_int64(value) : WholeOfOther(value, kWhat);
  if (number < std::numeric_limits<T>::min() || number > std::numeric_limits<T>::max()) {
    ThrowOutOfRange(value, kWhat);
  }
  chunk.Set<T>(column, row, static_cast<T>(number));
}

void WriteFlag(Value value, Chunk& chunk, std::size_t column, std::size_t row) {
  const int type = sqlite3_value_type(value);
  if (type == SQLITE_NULL) return;
  const std::int64_t number =
      type == SQLITE_INTEGER ? sqlite3_value_int64(value) : WholeOfOther(value, "a flag");
  chunk.Set<std::int16_t>(column, row, number != 0 ? std::int16_t{-1} : std::int16_t{0});
}

// Null and what is no number aside, the engine gives every number as a double by itself.
bool HasNumber(Value value) {
  const int type = sqlite3_value_type(value);
  if (type == SQLITE_FLOAT || type == SQLITE_INTEGER) return true;
  if (type != SQLITE_NULL) ThrowNot(value, "a number");
  return false;
}

// A zero has no sign.
void WriteReal(Value value, Chunk& chunk, std::size_t column, std::size_t row) {
  if (!HasNumber(value)) return;
  const double number = sqlite3_value_double(value);
  if (std::isinf(number)) ThrowOutOfRange(value, "a number");
  chunk.Set<double>(column, row, number + 0.0);
}

void WriteDecimal(Value value, Chunk& chunk, std::size_t column, std::size_t row) {
  if (!HasNumber(value)) return;
  const double number = sqlite3_value_double(value);
  if (std::isinf(number)) ThrowOutOfRange(value, "a number");
  chunk.Set<double>(column, row, InSureDigits(number));
}

void WriteSingle(Value value, Chunk& chunk, std::size_t column, std::size_t row) {
  if (!HasNumber(value)) return;
  const double number = sqlite3_value_double(value);
  const auto single = static_cast<float>(number);
  if (std::isinf(single)) ThrowOutOfRange(value, "a single");
  chunk.Set<float>(column, row, single + 0.0F);
}

void WriteMoney(Value value, Chunk& chunk, std::size_t column, std::size_t row) {
  std::int64_t units = 0;
  switch (sqlite3_value_type(value)) {
    case SQLITE_NULL:
      return;
    case SQLITE_INTEGER:
      if (__builtin_mul_overflow(sqlite3_value_int64(value), std::int64_t{10000}, &units)) {
        ThrowOutOfRange(value, "money");
      }
      break;
    case SQLITE_FLOAT:
      units = Currency::FromDouble(sqlite3_value_double(value)).TenThousandths();
      break;
    case SQLITE_TEXT:
      units = Currency::FromText(TextOf(value)).TenThousandths();
      break;
    default:
      ThrowNot(value, "an amount of money");
  }
  chunk.Set<std::int64_t>(column, row, units);
}

void WriteDate(Value value, Chunk& chunk, std::size_t column, std::size_t row) {
  const int type = sqlite3_value_type(value);
  if (type == SQLITE_NULL) return;
  const std::optional<Date> date =
      type == SQLITE_TEXT ? Date::FromIso(TextOf(value)) : std::nullopt;
  if (!date) ThrowNot(value, "a date");
  chunk.Set<double>(column, row, date->Serial());
}

void WriteText(Value value, Chunk& chunk, std::size_t column, std::size_t row) {
  const int type = sqlite3_value_type(value);
  if (type == SQLITE_NULL) return;
  if (type == SQLITE_BLOB) ThrowNot(value, "a text");
  const std::string_view text = TextOf(value);
  if (IsUtf8(text)) {
    chunk.SetText(column, row, text);
  } else {
    chunk.SetText(column, row, Repaired(text));
  }
}

struct TypeMapping {
  DataType type;
  void (*write)(Value, Chunk&, std::size_t, std::size_t);
};

TypeMapping MappingOf(sql::Type type) {
  switch (type) {
    case sql::Type::kNull:
    case sql::Type::kWhole:
      return {adInteger, &WriteWhole<std::int32_t>};
    case sql::Type::kBigWhole:
      return {adBigInt, &WriteWhole<std::int64_t>};
    case sql::Type::kFlag:
      return {adBoolean, &WriteFlag};
    case sql::Type::kMoney:
      return {adCurrency, &WriteMoney};
    case sql::Type::kSingle:
      return {adSingle, &WriteSingle};
    case sql::Type::kDecimal:
      return {adDouble, &WriteDecimal};
    case sql::Type::kReal:
      return {adDouble, &WriteReal};
    case sql::Type::kDate:
      return {adDate, &WriteDate};
    case sql::Type::kText:
      return {adBSTR, &WriteText};
  }
  return {adBSTR, &WriteText};
}

}  // namespace

std::string ShownCell(Value value) {
  constexpr std::size_t kLongest = 40;
  if (sqlite3_value_type(value) == SQLITE_BLOB) return "binary data";
  const bool text = sqlite3_value_type(value) == SQLITE_TEXT;
  std::string shown = Repaired(TextOf(value).substr(0, kLongest));
  return text ? "\"" + shown + "\"" : shown;
}

std::vector<ColumnInfo> ColumnsOf(const std::vector<sql::ResultColumn>& columns) {
  std::vector<ColumnInfo> infos;
  infos.reserve(columns.size());
  for (const sql::ResultColumn& column : columns) {
    const DataType type = MappingOf(column.type).type;
    const bool sized = type == adBSTR && column.size > 0;
    infos.push_back({.name = column.name,
                     .type = sized ? adVarChar : type,
                     .defined_size = sized ? column.size : 0,
                     .attributes = adFldIsNullable});
  }
  return infos;
}

RowWriter::RowWriter(sqlite3_stmt* statement, const std::vector<sql::ResultColumn>& columns)
    : statement_(statement) {
  for (const sql::ResultColumn& column : columns) {
    writers_.push_back(MappingOf(column.type).write);
    names_.push_back(column.name);
  }
}

void RowWriter::Write(Chunk& chunk, std::size_t row) const {
  std::size_t column = 0;
  try {
    for (; column < writers_.size(); ++column) {
      writers_[column](sqlite3_column_value(statement_, static_cast<int>(column)), chunk, column,
                       row);
    }
  } catch (const Error& error) {
    for (std::size_t each = 0; each <= column; ++each) chunk.SetNull(each, row);
    throw error.While("reading column " + names_[column]);
  }
}

}  // namespace pstolvane1::sqlite
