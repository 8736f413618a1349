#include "session/engine/postgres/Cells.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <fmt/format.h>
#include <limits>
#include <type_traits>

#include "session/data/Error.h"
#include "session/data/Number.h"

namespace pstolvane1::postgres {
namespace {

constexpr std::string_view kSignature{"PGCOPY\n\377\r\n\0", 11};

Error Garbled() {
  return Error(ErrorNumber::kQueryRefused,
               "the server's rows cannot be read, which is a mistake of this library");
}

template <typename Number>
Number Swapped(Number number) {
  using Bits = std::make_unsigned_t<Number>;
  const auto bits = static_cast<Bits>(number);
  if constexpr (sizeof(Number) == 2) return static_cast<Number>(__builtin_bswap16(bits));
  if constexpr (sizeof(Number) == 4) return static_cast<Number>(__builtin_bswap32(bits));
  if constexpr (sizeof(Number) == 8) return static_cast<Number>(__builtin_bswap64(bits));
}

// A whole number in the network's order of bytes.
template <typename Number>
Number WholeAt(const char* bytes) {
  Number number;
  std::memcpy(&number, bytes, sizeof number);
  return std::endian::native == std::endian::little ? Swapped(number) : number;
}

template <typename Number>
Number Take(std::string_view& piece) {
  if (piece.size() < sizeof(Number)) throw Garbled();
  const auto number = WholeAt<Number>(piece.data());
  piece.remove_prefix(sizeof(Number));
  return number;
}

template <typename Number>
Number Only(std::string_view cell) {
  if (cell.size() != sizeof(Number)) throw Garbled();
  return WholeAt<Number>(cell.data());
}

[[noreturn]] void ThrowOutOfRange(const std::string& shown, std::string_view what) {
  throw Error(ErrorNumber::kOverflow, fmt::format("{} is out of range for {}", shown, what));
}

template <typename Number>
void WriteWhole(std::string_view cell, Chunk& chunk, std::size_t column, std::size_t row) {
  chunk.Set<Number>(column, row, Only<Number>(cell));
}

void WriteFlag(std::string_view cell, Chunk& chunk, std::size_t column, std::size_t row) {
  if (cell.size() != 1) throw Garbled();
  chunk.Set<std::int16_t>(column, row, cell[0] != 0 ? std::int16_t{-1} : std::int16_t{0});
}

double RealOf(std::string_view cell) { return std::bit_cast<double>(Only<std::int64_t>(cell)); }

// A zero has no sign.
void WriteReal(std::string_view cell, Chunk& chunk, std::size_t column, std::size_t row) {
  chunk.Set<double>(column, row, RealOf(cell) + 0.0);
}

void WriteDecimal(std::string_view cell, Chunk& chunk, std::size_t column, std::size_t row) {
  chunk.Set<double>(column, row, InSureDigits(RealOf(cell)));
}

void WriteSingle(std::string_view cell, Chunk& chunk, std::size_t column, std::size_t row) {
  const double number = RealOf(cell);
  const auto single = static_cast<float>(number);
  if (std::isinf(single)) ThrowOutOfRange(fmt::format("{:.15g}", number), "a single");
  chunk.Set<float>(column, row, single + 0.0F);
}

// A numeric is a row of digits to the base of ten thousand, so that money's four decimals are one
// digit. 12.5 comes as the digits 12, 5000 with the weight 0.
void WriteMoney(std::string_view cell, Chunk& chunk, std::size_t column, std::size_t row) {
  constexpr std::uint16_t kNegative = 0x4000;
  constexpr int kBase = 10000;
  const auto count = Take<std::int16_t>(cell);
  const auto weight = Take<std::int16_t>(cell);
  const auto sign = Take<std::uint16_t>(cell);
  static_cast<void>(Take<std::int16_t>(cell));  // how many decimals are shown
  if (sign != 0 && sign != kNegative) ThrowOutOfRange("a number that is none", "money");
  if (count < 0 || cell.size() != static_cast<std::size_t>(count) * 2) throw Garbled();
  std::int64_t units = 0;
  const int last = count == 0 ? -1 : weight + 1;  // the digit of the ten-thousandths
  bool fits = true;
  for (int digit = 0; digit <= last && fits; ++digit) {
    const int value =
        digit < count ? WholeAt<std::int16_t>(cell.data() + std::ptrdiff_t{2} * digit) : 0;
    // Downwards, because the least number has no counterpart.
    fits = !__builtin_mul_overflow(units, std::int64_t{kBase}, &units) &&
           !__builtin_sub_overflow(units, std::int64_t{value}, &units);
  }
  if (fits && sign != kNegative) fits = !__builtin_sub_overflow(std::int64_t{0}, units, &units);
  if (!fits) ThrowOutOfRange("an amount", "money");
  chunk.Set<std::int64_t>(column, row, units);
}

constexpr std::int64_t kDay = 86'400'000'000;  // in microseconds, as a timestamp counts

// The server's zero is 1 January 2000.
void WriteDate(std::string_view cell, Chunk& chunk, std::size_t column, std::size_t row) {
  constexpr std::int64_t kSerialOfZero = 36526;
  constexpr std::int64_t kFirst = -657434;  // 1 January 100
  constexpr std::int64_t kLast = 2958465;   // 31 December 9999
  const auto moment = Only<std::int64_t>(cell);
  std::int64_t day = moment / kDay;
  std::int64_t within = moment % kDay;
  if (within < 0) {
    --day;
    within += kDay;
  }
  const std::int64_t serial = day + kSerialOfZero;
  if (serial < kFirst || serial > kLast) {
    throw Error(ErrorNumber::kTypeMismatch, "a date beyond the years 100 to 9999");
  }
  Date date(static_cast<double>(serial));
  if (within != 0) {
    const std::int64_t second = within / 1'000'000;
    const std::optional<Date> timed =
        Date::FromIso(fmt::format("{}T{:02}:{:02}:{:02}.{:06}", date.ToIso(), second / 3600,
                                  second / 60 % 60, second % 60, within % 1'000'000));
    if (!timed) throw Garbled();
    date = *timed;
  }
  chunk.Set<double>(column, row, date.Serial());
}

void WriteText(std::string_view cell, Chunk& chunk, std::size_t column, std::size_t row) {
  chunk.SetText(column, row, cell);
}

struct TypeMapping {
  DataType type;
  std::string_view travels;  // the server's type in which its values come
  void (*write)(std::string_view, Chunk&, std::size_t, std::size_t);
};

TypeMapping MappingOf(sql::Type type) {
  switch (type) {
    case sql::Type::kNull:
    case sql::Type::kWhole:
      return {adInteger, "int4", &WriteWhole<std::int32_t>};
    case sql::Type::kBigWhole:
      return {adBigInt, "int8", &WriteWhole<std::int64_t>};
    case sql::Type::kFlag:
      return {adBoolean, "bool", &WriteFlag};
    case sql::Type::kMoney:
      return {adCurrency, "numeric", &WriteMoney};
    case sql::Type::kSingle:
      return {adSingle, "float8", &WriteSingle};
    case sql::Type::kDecimal:
      return {adDouble, "float8", &WriteDecimal};
    case sql::Type::kReal:
      return {adDouble, "float8", &WriteReal};
    case sql::Type::kDate:
      return {adDate, "timestamp", &WriteDate};
    case sql::Type::kText:
      return {adBSTR, "text", &WriteText};
  }
  return {adBSTR, "text", &WriteText};
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

std::string CopyText(const sql::Translation& translation) {
  std::string columns;
  std::string names;
  for (std::size_t i = 0; i < translation.columns.size(); ++i) {
    const std::string name = "c" + std::to_string(i + 1);
    const char* separator = i == 0 ? "" : ", ";
    columns +=
        separator + name + "::" + std::string(MappingOf(translation.columns[i].type).travels);
    names += separator + name;
  }
  return "COPY (SELECT " + columns + " FROM (" + translation.text + ") AS report(" + names +
         ")) TO STDOUT (FORMAT binary)";
}

RowReader::RowReader(const std::vector<sql::ResultColumn>& columns) {
  for (const sql::ResultColumn& column : columns) {
    writers_.push_back(MappingOf(column.type).write);
    names_.push_back(column.name);
  }
}

void RowReader::ReadHeader(std::string_view& piece) {
  if (!piece.starts_with(kSignature)) throw Garbled();
  piece.remove_prefix(kSignature.size());
  static_cast<void>(Take<std::int32_t>(piece));  // flags
  const auto extension = Take<std::int32_t>(piece);
  if (extension < 0 || static_cast<std::size_t>(extension) > piece.size()) throw Garbled();
  piece.remove_prefix(static_cast<std::size_t>(extension));
  in_rows_ = true;
}

bool RowReader::Read(std::string_view& piece, Chunk& chunk) {
  if (piece.empty()) return false;
  if (!in_rows_) ReadHeader(piece);
  if (piece.empty()) return false;
  const auto fields = Take<std::int16_t>(piece);
  if (fields == -1) return false;  // the end of all rows
  if (fields != static_cast<std::int16_t>(writers_.size())) throw Garbled();
  const std::size_t row = chunk.RowCount();
  std::size_t column = 0;
  try {
    for (; column < writers_.size(); ++column) {
      const auto size = Take<std::int32_t>(piece);
      if (size < 0) continue;  // Null
      const auto bytes = static_cast<std::size_t>(size);
      if (bytes > piece.size()) throw Garbled();
      writers_[column](piece.substr(0, bytes), chunk, column, row);
      piece.remove_prefix(bytes);
    }
  } catch (const Error& error) {
    for (std::size_t each = 0; each <= column; ++each) chunk.SetNull(each, row);
    throw error.While("reading column " + names_[column]);
  }
  chunk.AddRow();
  return true;
}

}  // namespace pstolvane1::postgres
