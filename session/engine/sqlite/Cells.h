// From a row of a running statement into a chunk's typed columns.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "session/data/Chunk.h"
#include "session/sql/Translate.h"

struct sqlite3_stmt;
struct sqlite3_value;

namespace pstolvane1::sqlite {

// The rowset's columns for a query's: whole adInteger, big whole adBigInt, flag adBoolean (-1 or
// 0), single adSingle, real and decimal adDouble, money adCurrency, date adDate, text adVarChar
// with its size or adBSTR without one.
[[nodiscard]] std::vector<ColumnInfo> ColumnsOf(const std::vector<sql::ResultColumn>& columns);

// How a stored value stands in a message: a text in quotes, long ones cut. Call it after what its
// type decides, because it turns numbers into texts.
[[nodiscard]] std::string ShownCell(sqlite3_value* value);

// Copies cells as they are asked for by the columns' types, whatever SQLite has stored:
//   whole, flag   an integer, or a real that is a whole number
//   money         an integer or a real, rounded half to even to four places; or a text of digits
//   with
//                 at most four decimals
//   single, real, decimal   an integer or a real
//   date          ISO text
//   text          a text, or the text of a number; a byte that is not UTF-8 becomes U+FFFD
// Anything else is error 13, a value beyond the type's range error 6, told with the column's name.
class RowWriter {
 public:
  RowWriter(sqlite3_stmt* statement, const std::vector<sql::ResultColumn>& columns);

  // The statement's current row as the chunk's row; the caller adds the row afterwards. After an
  // error the row's cells are Null.
  void Write(Chunk& chunk, std::size_t row) const;

 private:
  using Writer = void (*)(sqlite3_value*, Chunk&, std::size_t column, std::size_t row);

  sqlite3_stmt* statement_;
  std::vector<Writer> writers_;
  std::vector<std::string> names_;
};

}  // namespace pstolvane1::sqlite
