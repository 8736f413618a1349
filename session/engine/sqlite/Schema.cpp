#include "session/engine/sqlite/Schema.h"

#include <algorithm>
#include <optional>
#include <sqlite3.h>
#include <string>
#include <utility>
#include <vector>

#include "session/engine/sqlite/Errors.h"
#include "session/engine/sqlite/ViewText.h"
#include "session/sql/Names.h"

namespace pstolvane1::sqlite {
namespace {

constexpr const char* kDoing = "reading the schema of the books";

struct Described {
  struct Column {
    std::string name;
    std::string declared;
    std::optional<sql::CatalogColumn> typed;
  };
  std::string name;
  std::string view;  // its SELECT; empty for a table
  std::vector<Column> columns;

  [[nodiscard]] bool IsTyped() const {
    return std::all_of(columns.begin(), columns.end(),
                       [](const Column& column) { return column.typed.has_value(); });
  }
  [[nodiscard]] sql::CatalogTable Table() const {
    sql::CatalogTable table{.name = name, .columns = {}};
    table.is_view = !view.empty();
    for (const Column& column : columns) {
      if (column.typed) {
        table.columns.push_back(*column.typed);
      } else if (!column.declared.empty()) {
        table.unread.emplace_back(column.name, column.declared);
      }
    }
    return table;
  }
};

std::string TextOf(sqlite3_stmt* statement, int column) {
  const unsigned char* text = sqlite3_column_text(statement, column);
  return text == nullptr ? std::string()
                         : std::string(static_cast<const char*>(static_cast<const void*>(text)));
}

std::vector<Described> NamesOf(Database& database) {
  // "_" is a wildcard, and only the engine's own names begin with "sqlite_".
  const NativeStatement statement = database.Prepare(
      "SELECT name, CASE type WHEN 'view' THEN sql END FROM sqlite_schema WHERE type IN ('table', "
      "'view') AND name NOT LIKE 'sqlite\\_%' ESCAPE '\\' ORDER BY name");
  std::vector<Described> names;
  while (database.Step(statement.get(), kDoing)) {
    names.push_back({.name = TextOf(statement.get(), 0),
                     .view = std::string(BodyOfView(TextOf(statement.get(), 1))),
                     .columns = {}});
  }
  return names;
}

// False for a view that refers to what there is not, or a table of a module that is not here: it
// does not stop the books from being opened.
bool ReadColumns(Database& database, sqlite3_stmt* columns, Described& table) {
  sqlite3_bind_text(columns, 1, table.name.c_str(), -1, SQLITE_TRANSIENT);
  int code = sqlite3_step(columns);
  for (; code == SQLITE_ROW; code = sqlite3_step(columns)) {
    std::string name = TextOf(columns, 0);
    std::string declared = TextOf(columns, 1);
    std::optional<sql::CatalogColumn> typed = sql::ColumnOfDeclaration(name, declared);
    table.columns.push_back({std::move(name), std::move(declared), std::move(typed)});
  }
  if (code != SQLITE_DONE && Classify(code) != Failure::kOther) throw database.Failed(code, kDoing);
  sqlite3_reset(columns);
  return code == SQLITE_DONE;
}

sql::Catalog CatalogOf(const std::vector<Described>& tables) {
  std::vector<sql::CatalogTable> described;
  described.reserve(tables.size());
  for (const Described& table : tables) described.push_back(table.Table());
  return sql::Catalog(std::move(described));
}

sql::Type TypeOfExpression(sql::Type found) {
  switch (found) {
    case sql::Type::kNull:
    case sql::Type::kText:
    case sql::Type::kFlag:
    case sql::Type::kDate:
      return found;
    default:
      return sql::Type::kReal;
  }
}

using Columns = std::vector<sql::ResultColumn>;

Columns TypedColumns(std::string_view view, const Translator& translate,
                     const sql::Catalog& catalog) {
  const WithClause with = ReadWith(view);
  if (with.tables.empty()) return translate(view, catalog).columns;
  std::vector<sql::CatalogTable> tables = catalog.Tables();
  for (const WithClause::Table& one : with.tables) {
    const Columns found = translate(one.select, sql::Catalog(tables)).columns;
    sql::CatalogTable table{.name = std::string(one.name), .columns = {}};
    for (std::size_t i = 0; i < found.size(); ++i) {
      const bool renamed = i < one.columns.size();
      table.columns.push_back({.name = renamed ? std::string(one.columns[i]) : found[i].name,
                               .type = TypeOfExpression(found[i].type),
                               .size = found[i].size,
                               .date_has_time = true});
    }
    // It stands before a table of the same name.
    std::erase_if(tables, [&](const sql::CatalogTable& other) {
      return sql::SameName(other.name, table.name);
    });
    tables.push_back(std::move(table));
  }
  return translate(with.rest, sql::Catalog(std::move(tables))).columns;
}

// True when it has given a type to a column that had none.
bool TypeExpressions(Described& view, const Translator& translate, const sql::Catalog& catalog) {
  Columns found;
  try {
    found = TypedColumns(view.view, translate, catalog);
  } catch (const Error&) {
    return false;  // a view need not be of the dialect
  }
  if (found.size() != view.columns.size()) return false;
  for (std::size_t i = 0; i < found.size(); ++i) {
    Described::Column& column = view.columns[i];
    if (column.typed) continue;
    column.typed = sql::CatalogColumn{.name = column.name,
                                      .type = TypeOfExpression(found[i].type),
                                      .size = found[i].size,
                                      .date_has_time = true};
  }
  return true;
}

}  // namespace

sql::Catalog ReadCatalog(Database& database, const Translator& translate, Watch& watch) {
  const Database::Running running(database, watch);
  const NativeStatement columns =
      database.Prepare("SELECT name, type FROM pragma_table_xinfo(?1) WHERE hidden <> 1");
  std::vector<Described> tables = NamesOf(database);
  std::erase_if(tables,
                [&](Described& table) { return !ReadColumns(database, columns.get(), table); });
  // A view may stand on another one, so this goes on as long as it finds something.
  for (bool found = true; found;) {
    found = false;
    const sql::Catalog catalog = CatalogOf(tables);
    for (Described& table : tables) {
      if (table.view.empty() || table.IsTyped()) continue;
      found = TypeExpressions(table, translate, catalog) || found;
    }
  }
  return CatalogOf(tables);
}

}  // namespace pstolvane1::sqlite
