// Reading and writing cells of a store in the type that the caller wants.
#pragma once

#include <cstdint>
#include <string_view>

#include "session/data/Currency.h"
#include "session/data/Date.h"
#include "session/data/RowStore.h"
#include "session/data/Variant.h"

namespace pstolvane1 {

// A cell's place. The functions below raise error 3265 for a column that the store does not have,
// 94 for Null, 13 for a value that cannot be converted to the type, 6 beyond its range, and name
// the column.
struct CellPlace {
  const RowStore& store;
  int column;
  std::uint32_t row;
};

[[nodiscard]] bool IsNullAt(CellPlace cell);
[[nodiscard]] std::int32_t Int32At(CellPlace cell);
[[nodiscard]] std::int64_t Int64At(CellPlace cell);
[[nodiscard]] float SingleAt(CellPlace cell);
[[nodiscard]] double DoubleAt(CellPlace cell);
[[nodiscard]] Currency MoneyAt(CellPlace cell);
[[nodiscard]] Date DateAt(CellPlace cell);
[[nodiscard]] bool FlagAt(CellPlace cell);
// Null reads as "".
[[nodiscard]] std::string_view TextAt(CellPlace cell);
// The cell as it is: Null is Null, a chapter its rowset.
[[nodiscard]] Variant ValueAt(CellPlace cell);
[[nodiscard]] std::shared_ptr<Recordset> ChapterAt(CellPlace cell);

// Converts the value to the column's type; Null and Empty are stored as Null. Error 3001 for a text
// that is longer than an adVarChar's defined size, error 13 for a chapter. The store is not told.
void Write(RowStore& store, int column, std::uint32_t row, const Variant& value);
void WriteText(RowStore& store, int column, std::uint32_t row, std::string_view text);
// The value of another cell; a text goes from store to store and nowhere else.
void WriteFrom(RowStore& store, int column, std::uint32_t row, CellPlace from);

}  // namespace pstolvane1
