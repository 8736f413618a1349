#include "session/engine/sqlite/Schema.h"

#include <sqlite3.h>
#include <string>
#include <utility>
#include <vector>

#include "session/engine/sqlite/Errors.h"

namespace pstolvane1::sqlite {
namespace {

constexpr const char* kDoing = "reading the schema of the books";

std::string TextOf(sqlite3_stmt* statement, int column) {
  const unsigned char* text = sqlite3_column_text(statement, column);
  return text == nullptr ? std::string()
                         : std::string(static_cast<const char*>(static_cast<const void*>(text)));
}

std::vector<std::string> NamesOf(Database& database) {
  // "_" is a wildcard, and only the engine's own names begin with "sqlite_".
  const NativeStatement statement = database.Prepare(
      "SELECT name FROM sqlite_schema WHERE type IN ('table', 'view') AND name NOT LIKE "
      "'sqlite\\_%' ESCAPE '\\' ORDER BY name");
  std::vector<std::string> names;
  while (database.Step(statement.get(), kDoing)) names.push_back(TextOf(statement.get(), 0));
  return names;
}

// False for a view that refers to what there is not, or a table of a module that is not here: it
// does not stop the books from being opened.
bool ReadColumns(Database& database, sqlite3_stmt* columns, sql::CatalogTable& table) {
  sqlite3_bind_text(columns, 1, table.name.c_str(), -1, SQLITE_TRANSIENT);
  int code = sqlite3_step(columns);
  for (; code == SQLITE_ROW; code = sqlite3_step(columns)) {
    std::optional<sql::CatalogColumn> column =
        sql::ColumnOfDeclaration(TextOf(columns, 0), TextOf(columns, 1));
    if (column) table.columns.push_back(*std::move(column));
  }
  if (code != SQLITE_DONE && Classify(code) != Failure::kOther) throw database.Failed(code, kDoing);
  sqlite3_reset(columns);
  return code == SQLITE_DONE;
}

}  // namespace

sql::Catalog ReadCatalog(Database& database, Watch& watch) {
  const Database::Running running(database, watch);
  std::vector<sql::CatalogTable> tables;
  const NativeStatement columns =
      database.Prepare("SELECT name, type FROM pragma_table_xinfo(?1) WHERE hidden <> 1");
  for (std::string& name : NamesOf(database)) {
    sql::CatalogTable table{.name = std::move(name), .columns = {}};
    if (ReadColumns(database, columns.get(), table)) tables.push_back(std::move(table));
  }
  return sql::Catalog(std::move(tables));
}

}  // namespace pstolvane1::sqlite
