#include "SmallBooks.h"

#include <atomic>
#include <filesystem>
#include <memory>
#include <sqlite3.h>
#include <stdexcept>
#include <unistd.h>

#include "session/books/Schema.h"
#include "session/sql/EngineText.h"

namespace pstolvane1::golden {
namespace {

struct Close {
  void operator()(sqlite3* database) const { sqlite3_close(database); }
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Database = std::unique_ptr<sqlite3, Close>;
using Statement = std::unique_ptr<sqlite3_stmt, Close>;

void Require(bool done, sqlite3* database, const std::string& doing) {
  if (!done) throw std::runtime_error(doing + ": " + sqlite3_errmsg(database));
}

void Execute(sqlite3* database, const std::string& text) {
  Require(sqlite3_exec(database, text.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK, database,
          text.substr(0, 60));
}

// The table of the books, whose columns the head names.
const books::Table& Known(const TextTable& table) {
  const books::Table* const known = books::FindTable(table.name);
  if (known == nullptr) throw std::runtime_error("the books have no table " + table.name);
  for (const std::string& column : table.head) {
    if (known->Find(column) == nullptr) {
      throw std::runtime_error(table.name + " has no column " + column);
    }
  }
  return *known;
}

// Cells are bound as text; the columns' types turn them into numbers.
void Insert(sqlite3* database, const TextTable& table) {
  (void)Known(table);
  std::string names, places;
  for (const std::string& column : table.head) {
    names += (names.empty() ? "[" : ", [") + column + "]";
    places += places.empty() ? "?" : ", ?";
  }
  const std::string text =
      "INSERT INTO [" + table.name + "] (" + names + ") VALUES (" + places + ")";
  sqlite3_stmt* raw = nullptr;
  Require(sqlite3_prepare_v2(database, text.c_str(), -1, &raw, nullptr) == SQLITE_OK, database,
          text);
  const Statement insert(raw);
  for (const auto& row : table.rows) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      const int place = static_cast<int>(i) + 1;
      if (row[i] == kNullCell) {
        sqlite3_bind_null(insert.get(), place);
      } else {
        const std::string cell = TextOf(row[i]);
        sqlite3_bind_text(insert.get(), place, cell.c_str(), static_cast<int>(cell.size()),
                          SQLITE_TRANSIENT);
      }
    }
    Require(sqlite3_step(insert.get()) == SQLITE_DONE, database, table.name + " " + row.front());
    sqlite3_reset(insert.get());
  }
}

// The rows as one INSERT; the server reads the texts as its columns' types.
std::string Inserted(const TextTable& table) {
  const books::Table& known = Known(table);
  if (table.rows.empty()) return "";
  std::string names;
  for (const std::string& column : table.head) {
    names += (names.empty() ? "" : ", ") + sql::QuotedName(known.Find(column)->name);
  }
  std::string rows;
  for (const auto& row : table.rows) {
    std::string cells;
    for (std::size_t i = 0; i < row.size(); ++i) {
      std::string text = TextOf(row[i]);
      const bool flag = known.Find(table.head[i])->kind == books::ColumnKind::kFlag;
      if (flag && text != "0") text = "1";
      cells += (cells.empty() ? "" : ", ") +
               (row[i] == kNullCell ? std::string("NULL") : sql::QuotedText(text));
    }
    rows += (rows.empty() ? "(" : ", (") + cells + ")";
  }
  return "INSERT INTO " + sql::QuotedName(known.name) + " (" + names + ") VALUES " + rows + ";";
}

std::string OnServer(const std::vector<TextTable>& tables) {
  std::string statements = books::PostgresSchema();
  for (const TextTable& table : tables) statements += Inserted(table);
  return statements;
}

std::string NewPath() {
  static std::atomic<int> number = 0;
  return (std::filesystem::temp_directory_path() /
          ("small_books_" + std::to_string(getpid()) + "_" + std::to_string(++number) + ".db"))
      .string();
}

}  // namespace

SmallBooks::SmallBooks(Engine engine, const std::vector<TextTable>& tables) {
  if (engine == Engine::kPostgres) {
    scratch_.emplace(OnServer(tables));
    return;
  }
  path_ = NewPath();
  std::filesystem::remove(path_);
  sqlite3* raw = nullptr;
  const int opened = sqlite3_open(path_.c_str(), &raw);
  const Database database(raw);
  Require(opened == SQLITE_OK, raw, path_);
  // One transaction, and nothing waits for the disk: the file lives as long as one case.
  Execute(raw, "PRAGMA synchronous = OFF; BEGIN;" + books::SqliteSchema());
  for (const TextTable& table : tables) Insert(raw, table);
  Execute(raw, "COMMIT;");
}

SmallBooks::~SmallBooks() {
  std::error_code ignored;
  if (!path_.empty()) std::filesystem::remove(path_, ignored);
}

}  // namespace pstolvane1::golden
