// From the rows that the server copies out in binary into a chunk's typed columns.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "session/data/Chunk.h"
#include "session/sql/Translate.h"

namespace pstolvane1::postgres {

// The rowset's columns for a query's: whole adInteger, big whole adBigInt, flag adBoolean (-1 or
// 0), single adSingle, real and decimal adDouble, money adCurrency, date adDate, text adVarChar
// with its size or adBSTR without one.
[[nodiscard]] std::vector<ColumnInfo> ColumnsOf(const std::vector<sql::ResultColumn>& columns);

// The statement whose rows a RowReader reads: the emitted text with every column as the type that
// its kind travels in.
[[nodiscard]] std::string CopyText(const sql::Translation& translation);

// Reads what the server sends for CopyText. A value beyond its type's range is error 6, a date
// beyond the years 100 to 9999 error 13, told with the column's name; bytes that are no rows are
// error -2147217900.
class RowReader {
 public:
  explicit RowReader(const std::vector<sql::ResultColumn>& columns);

  // Adds the next row of the piece to the chunk and takes it off the piece; false when the piece
  // holds no further row. After an error the row is not added and its cells are Null.
  [[nodiscard]] bool Read(std::string_view& piece, Chunk& chunk);

 private:
  using Writer = void (*)(std::string_view, Chunk&, std::size_t column, std::size_t row);

  void ReadHeader(std::string_view& piece);

  std::vector<Writer> writers_;
  std::vector<std::string> names_;
  bool in_rows_ = false;  // the header is behind
};

}  // namespace pstolvane1::postgres
