// What the tables and views of an SQLite database look like to the front end.
#pragma once

#include <string_view>

#include "session/engine/Translations.h"
#include "session/engine/sqlite/Database.h"
#include "session/sql/Catalog.h"

namespace pstolvane1::sqlite {

// The tables and views of the books, the engine's own left out. A column's type is its declared
// one, of a view's column that of the table's column behind it. A view's expression has none: where
// the front end can read the view, the expression has the kind that it finds, every number as a
// real, because the engine's own arithmetic does not keep to the narrower types. What has no type
// after that (a blob, an expression that the front end cannot read) is left out.
[[nodiscard]] sql::Catalog ReadCatalog(Database& database, const Translator& translate,
                                       Watch& watch);

}  // namespace pstolvane1::sqlite
