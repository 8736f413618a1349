#include "tests/sql/SqliteBooks.h"

#include <stdexcept>

#include "session/books/Schema.h"
#include "session/sql/SqliteFunctions.h"

namespace pstolvane1::sql {
namespace {

void NotRun(sqlite3_context* context, int, sqlite3_value**) {
  sqlite3_result_error(context, "this database only prepares", -1);
}
void NotFinished(sqlite3_context* context) {
  sqlite3_result_error(context, "this database only prepares", -1);
}
int NotCompared(void*, int, const void*, int, const void*) { return 0; }

}  // namespace

Catalog ReferenceCatalog() {
  std::vector<CatalogTable> tables;
  for (const books::Table& table : books::Tables()) {
    CatalogTable described{std::string(table.name), {}};
    for (const books::Column& column : table.columns) {
      described.columns.push_back(
          ColumnOfDeclaration(column.name, books::SqliteType(column)).value());
    }
    tables.push_back(std::move(described));
  }
  return Catalog(std::move(tables));
}

PreparingBooks::PreparingBooks(const std::string& statements) {
  sqlite3* database = nullptr;
  const bool opened = sqlite3_open(":memory:", &database) == SQLITE_OK;
  database_.reset(database);
  const std::string collation(kTextCollation);
  sqlite3_create_collation(database, collation.c_str(), SQLITE_UTF8, nullptr, NotCompared);
  for (const SqliteFunction& function : kSqliteFunctions) {
    const std::string name(function.name);
    sqlite3_create_function(
        database, name.c_str(), function.arity, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr,
        function.aggregate ? nullptr : NotRun, function.aggregate ? NotRun : nullptr,
        function.aggregate ? NotFinished : nullptr);
  }
  if (!opened || sqlite3_exec(database, statements.c_str(), nullptr, nullptr, nullptr) != 0) {
    throw std::runtime_error(sqlite3_errmsg(database));
  }
}

std::string PreparingBooks::WhyNotPrepared(const std::string& statement) {
  sqlite3_stmt* prepared = nullptr;
  const int result = sqlite3_prepare_v2(database_.get(), statement.c_str(), -1, &prepared, nullptr);
  sqlite3_finalize(prepared);
  return result == SQLITE_OK ? "" : sqlite3_errmsg(database_.get());
}

std::string PreparingBooks::PlanOf(const std::string& statement) {
  sqlite3_stmt* prepared = nullptr;
  const std::string explained = "EXPLAIN QUERY PLAN " + statement;
  sqlite3_prepare_v2(database_.get(), explained.c_str(), -1, &prepared, nullptr);
  std::string plan;
  while (sqlite3_step(prepared) == SQLITE_ROW) {
    const unsigned char* line = sqlite3_column_text(prepared, 3);
    while (*line != 0) plan += static_cast<char>(*line++);
    plan += '\n';
  }
  sqlite3_finalize(prepared);
  return plan;
}

}  // namespace pstolvane1::sql
