// The one error for a stored value that is not of its column's type, whatever the engine.
#pragma once

#include <string>
#include <string_view>

#include "session/data/Error.h"
#include "session/sql/Catalog.h"

namespace pstolvane1 {

// A column of a table of the books.
struct TableColumn {
  std::string table;
  std::string column;
  sql::Type type = sql::Type::kText;

  friend bool operator==(const TableColumn&, const TableColumn&) = default;
};

// Error 13: GodownItem1.Qty holds "NaN", which is not a number. `shown` is the value as it is to be
// read, with its quotes.
[[nodiscard]] Error WrongValue(const TableColumn& where, std::string_view shown);

}  // namespace pstolvane1
