#include "session/engine/sqlite/Cells.h"

#include <cmath>
#include <fmt/format.h>
#include <limits>
#include <sqlite3.h>
#include <string_view>

#include "session/data/Error.h"
#include "session/engine/sqlite/Utf8.h"

namespace pstolvane1::sqlite {
namespace {

using Statement = sqlite3_stmt*;

std::size_t Index(int column) { return static_cast<std::size_t>(column); }

// The text of a cell that is not Null. Numbers are turned into text in place, so ask for a cell's
// type before.
std::string_view TextOf(Statement statement, int column) {
  const unsigned char* text = sqlite3_column_text(statement, column);
  const int size = sqlite3_column_bytes(statement, column);
  if (text == nullptr) return {};
  return {static_cast<const char*>(static_cast<const void*>(text)), static_cast<std::size_t>(size)};
}

// How a cell stands in a message; long ones are cut.
std::string Shown(Statement statement, int column) {
  constexpr std::size_t kLongest = 40;
  if (sqlite3_column_type(statement, column) == SQLITE_BLOB) return "binary data";
  const bool text = sqlite3_column_type(statement, column) == SQLITE_TEXT;
  std::string shown = Repaired(TextOf(statement, column).substr(0, kLongest));
  return text ? "\"" + shown + "\"" : shown;
}

[[noreturn]] void ThrowNot(Statement statement, int column, std::string_view what) {
  throw Error(ErrorNumber::kTypeMismatch,
              fmt::format("{} is not {}", Shown(statement, column), what));
}

[[noreturn]] void ThrowOutOfRange(Statement statement, int column, std::string_view what) {
  throw Error(ErrorNumber::kOverflow,
              fmt::format("{} is out of range for {}", Shown(statement, column), what));
}

// A whole number of 64 bits, of a cell that is no integer.
std::int64_t WholeOfOther(Statement statement, int column, std::string_view what) {
  if (sqlite3_column_type(statement, column) != SQLITE_FLOAT) ThrowNot(statement, column, what);
  constexpr double kLimit = 9223372036854775808.0;
  const double number = sqlite3_column_double(statement, column);
  if (number != std::trunc(number)) ThrowNot(statement, column, what);
  if (number < -kLimit || number >= kLimit) ThrowOutOfRange(statement, column, what);
  return static_cast<std::int64_t>(number);
}

template <typename T>
void WriteWhole(Statement statement, int column, Chunk& chunk, std::size_t row) {
  constexpr std::string_view kWhat =
      sizeof(T) == 4 ? "a 32-bit whole number" : "a 64-bit whole number";
  const int type = sqlite3_column_type(statement, column);
  if (type == SQLITE_NULL) return;
  const std::int64_t number = type == SQLITE_INTEGER ? sqlite3_column_int64(statement, column)
                                                     : WholeOfOther(statement, column, kWhat);
  if (number < std::numeric_limits<T>::min() || number > std::numeric_limits<T>::max()) {
    ThrowOutOfRange(statement, column, kWhat);
  }
  chunk.Set<T>(Index(column), row, static_cast<T>(number));
}

void WriteFlag(Statement statement, int column, Chunk& chunk, std::size_t row) {
  const int type = sqlite3_column_type(statement, column);
  if (type == SQLITE_NULL) return;
  const std::int64_t number = type == SQLITE_INTEGER ? sqlite3_column_int64(statement, column)
                                                     : WholeOfOther(statement, column, "a flag");
  chunk.Set<std::int16_t>(Index(column), row, number != 0 ? std::int16_t{-1} : std::int16_t{0});
}

// Null and what is no number aside, the engine gives every number as a double by itself.
bool HasNumber(Statement statement, int column) {
  const int type = sqlite3_column_type(statement, column);
  if (type == SQLITE_FLOAT || type == SQLITE_INTEGER) return true;
  if (type != SQLITE_NULL) ThrowNot(statement, column, "a number");
  return false;
}

void WriteReal(Statement statement, int column, Chunk& chunk, std::size_t row) {
  if (!HasNumber(statement, column)) return;
  chunk.Set<double>(Index(column), row, sqlite3_column_double(statement, column));
}

void WriteSingle(Statement statement, int column, Chunk& chunk, std::size_t row) {
  if (!HasNumber(statement, column)) return;
  const double number = sqlite3_column_double(statement, column);
  const auto single = static_cast<float>(number);
  if (std::isinf(single)) ThrowOutOfRange(statement, column, "a single");
  chunk.Set<float>(Index(column), row, single);
}

void WriteMoney(Statement statement, int column, Chunk& chunk, std::size_t row) {
  std::int64_t units = 0;
  switch (sqlite3_column_type(statement, column)) {
    case SQLITE_NULL:
      return;
    case SQLITE_INTEGER:
      if (__builtin_mul_overflow(sqlite3_column_int64(statement, column), std::int64_t{10000},
                                 &units)) {
        ThrowOutOfRange(statement, column, "money");
      }
      break;
    case SQLITE_FLOAT:
      units = Currency::FromDouble(sqlite3_column_double(statement, column)).TenThousandths();
      break;
    case SQLITE_TEXT:
      units = Currency::FromText(TextOf(statement, column)).TenThousandths();
      break;
    default:
      ThrowNot(statement, column, "an amount of money");
  }
  chunk.Set<std::int64_t>(Index(column), row, units);
}

void WriteDate(Statement statement, int column, Chunk& chunk, std::size_t row) {
  const int type = sqlite3_column_type(statement, column);
  if (type == SQLITE_NULL) return;
  const std::optional<Date> date =
      type == SQLITE_TEXT ? Date::FromIso(TextOf(statement, column)) : std::nullopt;
  if (!date) ThrowNot(statement, column, "a date");
  chunk.Set<double>(Index(column), row, date->Serial());
}

void WriteText(Statement statement, int column, Chunk& chunk, std::size_t row) {
  const int type = sqlite3_column_type(statement, column);
  if (type == SQLITE_NULL) return;
  if (type == SQLITE_BLOB) ThrowNot(statement, column, "a text");
  const std::string_view text = TextOf(statement, column);
  if (IsUtf8(text)) {
    chunk.SetText(Index(column), row, text);
  } else {
    chunk.SetText(Index(column), row, Repaired(text));
  }
}

struct TypeMapping {
  DataType type;
  void (*write)(Statement, int, Chunk&, std::size_t);
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
      writers_[column](statement_, static_cast<int>(column), chunk, row);
    }
  } catch (const Error& error) {
    for (std::size_t each = 0; each <= column; ++each) chunk.SetNull(each, row);
    throw error.While("reading column " + names_[column]);
  }
}

}  // namespace pstolvane1::sqlite
