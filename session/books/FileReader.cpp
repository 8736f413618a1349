// A file of books, past the front end: what stands in a column may be anything.
#include <algorithm>
#include <filesystem>
#include <memory>
#include <sqlite3.h>
#include <system_error>

#include "session/books/Reader.h"
#include "session/books/Schema.h"
#include "session/data/Error.h"

namespace pstolvane1::books {
namespace {

constexpr int kWaitMilliseconds = 10'000;  // for whoever writes to the books

struct Finalize {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Prepared = std::unique_ptr<sqlite3_stmt, Finalize>;

Prepared Prepare(sqlite3* database, const std::string& select) {
  sqlite3_stmt* statement = nullptr;
  sqlite3_prepare_v2(database, select.c_str(), -1, &statement, nullptr);
  return Prepared(statement);
}

class FileReader final : public Reader {
 public:
  explicit FileReader(const std::string& path);
  ~FileReader() override;
  FileReader(const FileReader&) = delete;
  FileReader& operator=(const FileReader&) = delete;

  [[nodiscard]] std::vector<Row> Select(const std::string& select) override;
  [[nodiscard]] bool Understands(const std::string& select) override;
  [[nodiscard]] std::vector<std::string> TableNames() override;
  [[nodiscard]] std::vector<DeclaredColumn> ColumnsIn(const Table& table) override;
  [[nodiscard]] bool IsTable(const Table& table) override;
  [[nodiscard]] std::vector<DeclaredIndex> IndexesIn(const Table& table) override;

  [[nodiscard]] std::string Serving(const Table& /*table*/, const Index& index) const override {
    std::string columns = InSmallLetters(index.columns);
    std::erase(columns, ' ');
    return columns;
  }
  [[nodiscard]] std::vector<std::string> Damage() override;
  [[nodiscard]] bool KeepsAnyValue() const override { return true; }
  [[nodiscard]] std::string MonthOf(const std::string& date) const override {
    return "substr(" + date + ", 1, 4) * 12 + substr(" + date + ", 6, 2) - 1";
  }
  [[nodiscard]] std::string CreateTable(const Table& table) const override {
    return SqliteCreateTable(table) + ";";
  }
  [[nodiscard]] std::string MakeIndex(const Table& table, const Index& index) override;
  [[nodiscard]] std::string AddColumn(const Table& table, const Column& column) const override {
    return "ALTER TABLE " + std::string(table.name) + " ADD COLUMN " + std::string(column.name) +
           " " + SqliteType(column) + ";";
  }
  [[nodiscard]] std::string TypeOf(const Column& column) const override {
    return SqliteType(column);
  }
  [[nodiscard]] const std::string& Name() const override { return name_; }

 private:
  [[noreturn]] void Fail();

  std::string path_;
  std::string name_;
  sqlite3* database_ = nullptr;
};

// What SQLite tells in the same words, whatever the cause.
std::string WhyNotOpened(const std::string& path, const std::string& words) {
  std::error_code ignored;
  if (std::filesystem::is_directory(path, ignored)) return "it is a folder";
  return std::filesystem::exists(path, ignored) || ignored ? words : "there is no such file";
}

FileReader::FileReader(const std::string& path) : path_(path), name_('"' + path + '"') {
  const int flags = SQLITE_OPEN_READONLY | SQLITE_OPEN_NOMUTEX;
  const bool opened = sqlite3_open_v2(path.c_str(), &database_, flags, nullptr) == SQLITE_OK;
  if (opened) sqlite3_busy_timeout(database_, kWaitMilliseconds);
  // The state is taken by the first reading in a transaction.
  if (!opened || sqlite3_exec(database_, "BEGIN; SELECT count(*) FROM sqlite_master", nullptr,
                              nullptr, nullptr) != SQLITE_OK) {
    const std::string words = database_ ? sqlite3_errmsg(database_) : "out of memory";
    sqlite3_close(database_);
    throw Error(ErrorNumber::kConnection,
                "cannot open the books \"" + path + "\": " + WhyNotOpened(path, words));
  }
}

FileReader::~FileReader() { sqlite3_close(database_); }

void FileReader::Fail() {
  throw Error(ErrorNumber::kConnection,
              "cannot read the books \"" + path_ + "\": " + sqlite3_errmsg(database_));
}

std::vector<Reader::Row> FileReader::Select(const std::string& select) {
  const Prepared statement = Prepare(database_, select);
  if (!statement) Fail();
  std::vector<Row> rows;
  int result = sqlite3_step(statement.get());
  for (; result == SQLITE_ROW; result = sqlite3_step(statement.get())) {
    Row& row = rows.emplace_back();
    for (int i = 0; i < sqlite3_column_count(statement.get()); ++i) {
      const auto* text = sqlite3_column_text(statement.get(), i);
      const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement.get(), i));
      row.push_back(text ? std::optional(std::string(reinterpret_cast<const char*>(text), size))
                         : std::nullopt);
    }
  }
  if (result != SQLITE_DONE) Fail();
  return rows;
}

std::vector<std::string> FileReader::Damage() {
  std::vector<std::string> damage;
  const Prepared check = Prepare(database_, "PRAGMA integrity_check(5)");
  int result = check ? sqlite3_step(check.get()) : SQLITE_ERROR;
  for (; result == SQLITE_ROW; result = sqlite3_step(check.get())) {
    const auto* text = sqlite3_column_text(check.get(), 0);
    damage.emplace_back(text ? reinterpret_cast<const char*>(text) : "");
  }
  if (result != SQLITE_DONE) damage.emplace_back(sqlite3_errmsg(database_));
  if (damage == std::vector<std::string>{"ok"}) damage.clear();
  return damage;
}

bool FileReader::Understands(const std::string& select) {
  return Prepare(database_, select) != nullptr;
}

std::vector<DeclaredColumn> FileReader::ColumnsIn(const Table& table) {
  std::vector<DeclaredColumn> columns;
  for (const auto& row :
       Select("SELECT name, type FROM pragma_table_info('" + std::string(table.name) + "')")) {
    DeclaredColumn column{row[0].value_or(""), row[1].value_or(""), std::nullopt};
    const auto read = sql::ColumnOfDeclaration(column.name, column.declared);
    if (read) column.type = read->type;
    columns.push_back(std::move(column));
  }
  return columns;
}

std::vector<std::string> FileReader::TableNames() {
  std::vector<std::string> names;
  for (const auto& row : Select("SELECT name FROM sqlite_master WHERE type = 'table' AND "
                                "substr(name, 1, 7) <> 'sqlite_' ORDER BY name")) {
    names.push_back(row[0].value_or(""));
  }
  return names;
}

bool FileReader::IsTable(const Table& table) {
  return !Select("SELECT 1 FROM sqlite_master WHERE type = 'table' AND lower(name) = '" +
                 InSmallLetters(table.name) + "'")
              .empty();
}

std::string FileReader::MakeIndex(const Table& table, const Index& index) {
  const bool taken =
      !Select("SELECT 1 FROM sqlite_master WHERE type = 'index' AND lower(name) = '" +
              InSmallLetters(index.name) + "'")
           .empty();
  return (taken ? "DROP INDEX " + std::string(index.name) + "; " : std::string()) +
         SqliteCreateIndex(table, index) + ";";
}

// Those over expressions do not count. Null is first in every one.
std::vector<DeclaredIndex> FileReader::IndexesIn(const Table& table) {
  std::vector<DeclaredIndex> indexes;
  for (const auto& row : Select(
           "SELECT name, (SELECT group_concat(name) FROM (SELECT coalesce(name, '()') AS name FROM "
           "pragma_index_info(l.name) ORDER BY seqno)) FROM pragma_index_list('" +
           std::string(table.name) + "') l WHERE partial = 0")) {
    std::string columns = InSmallLetters(row[1].value_or(""));
    const auto count = static_cast<std::size_t>(std::ranges::count(columns, ',')) + 1;
    indexes.push_back({row[0].value_or(""), std::move(columns), count});
  }
  return indexes;
}

}  // namespace

std::unique_ptr<Reader> ReadFile(const std::string& path) {
  return std::make_unique<FileReader>(path);
}

}  // namespace pstolvane1::books
