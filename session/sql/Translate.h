// The front end's one door: a SELECT of the reports' dialect in, an engine's text out.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "session/sql/Catalog.h"

namespace pstolvane1::sql {

struct ResultColumn {
  std::string name;  // as the query spells it
  Type type = Type::kText;
  int size = 0;
};

struct Translation {
  std::string text;  // one statement of the engine, no comments, no terminator
  std::vector<ResultColumn> columns;
  // Of tables and views, that the text names: those of the catalog, and valid as long as it.
  std::vector<std::pair<const CatalogTable*, const CatalogColumn*>> named = {};
};

// Reads, types and writes out one SELECT. Pure; may be called from any thread. Error -2147217900
// with "line L, column C" and the reason for what cannot be read, is not one SELECT, names what the
// catalog does not have, is ambiguous, or cannot be given the dialect's meaning.
[[nodiscard]] Translation TranslateForSqlite(std::string_view select, const Catalog& catalog);
[[nodiscard]] Translation TranslateForPostgres(std::string_view select, const Catalog& catalog);

}  // namespace pstolvane1::sql
