#include "SmallBooks.h"

#include <atomic>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sqlite3.h>
#include <sstream>
#include <stdexcept>
#include <unistd.h>

#include "session/books/Schema.h"

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

// Cells are bound as text; the columns' types turn them into numbers.
void Insert(sqlite3* database, const TextTable& table) {
  const books::Table* const known = books::FindTable(table.name);
  if (known == nullptr) throw std::runtime_error("the books have no table " + table.name);
  std::string names, places;
  for (const std::string& column : table.head) {
    if (known->Find(column) == nullptr) {
      throw std::runtime_error(table.name + " has no column " + column);
    }
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
      if (row[i].empty()) {
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

std::string NewPath() {
  static std::atomic<int> number = 0;
  return (std::filesystem::temp_directory_path() /
          ("small_books_" + std::to_string(getpid()) + "_" + std::to_string(++number) + ".db"))
      .string();
}

Database Opened(const std::string& path) {
  sqlite3* raw = nullptr;
  const int opened = sqlite3_open(path.c_str(), &raw);
  Database database(raw);
  Require(opened == SQLITE_OK, raw, path);
  return database;
}

// A file with the reference schema and no rows; it is made once, as every case starts from it.
const std::string& EmptyBooks() {
  static const std::string bytes = [] {
    const std::string path = NewPath();
    Execute(Opened(path).get(),
            "PRAGMA synchronous = OFF; BEGIN;" + books::SqliteSchema() + "COMMIT;");
    std::ostringstream read;
    read << std::ifstream(path, std::ios::binary).rdbuf();
    std::filesystem::remove(path);
    return read.str();
  }();
  return bytes;
}

}  // namespace

SmallBooks::SmallBooks(const std::vector<TextTable>& tables) : path_(NewPath()) {
  std::ofstream(path_, std::ios::binary) << EmptyBooks();
  const Database database = Opened(path_);
  // One transaction, and nothing waits for the disk: the file lives as long as one case.
  Execute(database.get(), "PRAGMA synchronous = OFF; BEGIN;");
  for (const TextTable& table : tables) Insert(database.get(), table);
  Execute(database.get(), "COMMIT;");
}

SmallBooks::~SmallBooks() {
  std::error_code ignored;
  std::filesystem::remove(path_, ignored);
}

}  // namespace pstolvane1::golden
