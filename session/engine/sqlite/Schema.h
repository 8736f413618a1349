// What the tables and views of an SQLite database look like to the front end.
#pragma once

#include "session/engine/sqlite/Database.h"
#include "session/sql/Catalog.h"

namespace pstolvane1::sqlite {

// The tables and views of the books, the engine's own left out. A column's type is its declared
// one, of a view's column that of the table's column behind it; a column whose declaration has no
// meaning in the dialect (a blob, an expression of a view) is left out.
[[nodiscard]] sql::Catalog ReadCatalog(Database& database, Watch& watch);

}  // namespace pstolvane1::sqlite
