// The settled points of the dialect's meaning, run on every engine.
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <sqlite3.h>
#include <stdexcept>
#include <string>
#include <tuple>
#include <unistd.h>

#include "session/data/Chunk.h"
#include "session/data/Error.h"
#include "session/data/Provider.h"
#include "session/engine/Engines.h"
#include "tests/SourcePath.h"
#include "tests/server/Server.h"
#include "tests/sql/CaseFile.h"

namespace pstolvane1::sql {
namespace {

// Five items, the last of which knows nothing of itself, and a few movements. Item 2's name differs
// from item 1's in case and a trailing blank only; the flags are 0, 1 and -1; amounts stand as
// integers and as reals; the times of day stand in all forms.
constexpr const char* kBooks =
    "CREATE TABLE Item (Item_id INTEGER PRIMARY KEY, Name VARCHAR(20) COLLATE NOCASE, Deleted BIT,"
    " State INT, Qty REAL, Rate DECIMAL(19,4), Weight DECIMAL(12,6), Born DATE, Seen DATETIME,"
    " Note TEXT, Big BIGINT);"
    "INSERT INTO Item VALUES"
    " (1, 'Apple', 0, 7, 2.5, 10, 0.1, '2003-04-01', '2003-04-01 08:00:00', 'red', 1),"
    " (2, 'apple ', 1, -7, 0.1, 0.1, 0.2, '2004-03-31', '2004-03-31', 'Red ',"
    "  9223372036854775807),"
    " (3, 'BANANA', -1, 2, -3, 0.2, 1.5, '2004-04-01', '2004-03-31T14:05:09', 'yellow', 3),"
    " (4, 'Pear_x', 0, 0, 0, -2.345, 2, NULL, '2004-03-31 00:00:00.000', '', 4),"
    " (5, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL);"
    "CREATE TABLE Move (Move_id INT, Item_id INT, Qty REAL, Rate MONEY, Added BIT, Date DATE);"
    "INSERT INTO Move VALUES (1, 1, 10, 5, -1, '2003-05-01'), (2, 1, 10, 7, 1, '2003-06-01'),"
    " (3, 1, 5, 9, 0, '2003-07-01'), (4, 2, 1, 0.1, 1, '2003-12-31'),"
    " (5, 2, 1, 0.2, 1, '2004-01-01'), (6, 9, 4, 1.5, 0, NULL);";

// The same for PostgreSQL.
constexpr const char* kServerBooks =
    "CREATE DOMAIN single AS float8;"
    "CREATE TABLE \"Item\" (\"Item_id\" int PRIMARY KEY, \"Name\" varchar(20), \"Deleted\" boolean,"
    " \"State\" int, \"Qty\" single, \"Rate\" numeric(19,4), \"Weight\" numeric(12,6), \"Born\" "
    "date,"
    " \"Seen\" timestamp, \"Note\" text, \"Big\" bigint);"
    "INSERT INTO \"Item\" VALUES"
    " (1, 'Apple', false, 7, 2.5, 10, 0.1, '2003-04-01', '2003-04-01 08:00:00', 'red', 1),"
    " (2, 'apple ', true, -7, 0.1, 0.1, 0.2, '2004-03-31', '2004-03-31', 'Red ',"
    "  9223372036854775807),"
    " (3, 'BANANA', true, 2, -3, 0.2, 1.5, '2004-04-01', '2004-03-31T14:05:09', 'yellow', 3),"
    " (4, 'Pear_x', false, 0, 0, -2.345, 2, NULL, '2004-03-31 00:00:00.000', '', 4),"
    " (5, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL);"
    "CREATE TABLE \"Move\" (\"Move_id\" int, \"Item_id\" int, \"Qty\" single, \"Rate\" "
    "numeric(19,4),"
    " \"Added\" boolean, \"Date\" date);"
    "INSERT INTO \"Move\" VALUES (1, 1, 10, 5, true, '2003-05-01'),"
    " (2, 1, 10, 7, true, '2003-06-01'), (3, 1, 5, 9, false, '2003-07-01'),"
    " (4, 2, 1, 0.1, true, '2003-12-31'), (5, 2, 1, 0.2, true, '2004-01-01'),"
    " (6, 9, 4, 1.5, false, NULL);";

constexpr std::chrono::milliseconds kTimeLimit = std::chrono::seconds(10);

enum class Engine { kSqlite, kPostgres };

class Folder {
 public:
  Folder() {
    std::string name = (std::filesystem::temp_directory_path() / "pst_meaning_XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
    path_ = name;
  }
  ~Folder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;

  [[nodiscard]] std::string Books() const {
    std::string path = path_ / "books.db";
    sqlite3* writer = nullptr;
    const bool made = sqlite3_open(path.c_str(), &writer) == SQLITE_OK &&
                      sqlite3_exec(writer, kBooks, nullptr, nullptr, nullptr) == SQLITE_OK;
    sqlite3_close(writer);
    if (!made) throw std::runtime_error("cannot make the books");
    return path;
  }

 private:
  std::filesystem::path path_;
};

class Books {
 public:
  explicit Books(Engine engine) {
    if (engine == Engine::kSqlite) {
      folder_.emplace();
    } else {
      scratch_.emplace(kServerBooks);
    }
    database_ = OpenDatabase(folder_ ? folder_->Books() : scratch_->ConnectionString(), kTimeLimit);
  }

  // A line for each row, cells apart by "|"; "NUMBER: description" of the error that it raises,
  // without the "while ...: " in front.
  std::string Answer(const std::string& select) {
    try {
      const auto cursor = database_->TakeSnapshot(kTimeLimit)->Run(select, kTimeLimit);
      Chunk chunk(cursor->Columns());
      const std::size_t rows = cursor->Read(chunk);
      std::string text;
      for (std::size_t row = 0; row < rows; ++row) {
        if (row > 0) text += '\n';
        for (std::size_t at = 0; at < cursor->Columns().size(); ++at) {
          text += (at > 0 ? "|" : "") + Cell(chunk, cursor->Columns()[at].type, at, row);
        }
      }
      return rows == 0 ? "no rows" : text;
    } catch (const Error& error) {
      const std::string& words = error.Description();
      const std::size_t doing = words.starts_with("while ") ? words.find(": ") + 2 : 0;
      return std::to_string(static_cast<std::int32_t>(error.Number())) + ": " + words.substr(doing);
    }
  }

 private:
  static std::string Cell(const Chunk& chunk, DataType type, std::size_t at, std::size_t row) {
    if (chunk.IsNull(at, row)) return "(null)";
    switch (type) {
      case adInteger:
        return std::to_string(chunk.Get<std::int32_t>(at, row));
      case adBigInt:
        return std::to_string(chunk.Get<std::int64_t>(at, row));
      case adBoolean:
        return Boolean(chunk.Get<std::int16_t>(at, row)).IsTrue() ? "True" : "False";
      case adSingle:
        return Variant(chunk.Get<float>(at, row)).ToText();
      case adDouble:
        return Variant(chunk.Get<double>(at, row)).ToText();
      case adCurrency:
        return "$" + Currency::FromTenThousandths(chunk.Get<std::int64_t>(at, row)).ToText();
      case adDate:
        return Date(chunk.Get<double>(at, row)).ToIso();
      default:
        return "'" + std::string(chunk.Text(at, row)) + "'";
    }
  }

  std::optional<Folder> folder_;
  std::optional<Scratch> scratch_;
  std::shared_ptr<Provider> database_;
};

std::string NumberOf(const std::string& error) { return error.substr(0, error.find(':')); }

class Meaning : public testing::TestWithParam<std::tuple<Engine, const char*>> {};

TEST_P(Meaning, IsWhatTheFileSays) {
  const auto [engine, file] = GetParam();
  Books books(engine);
  const std::string folder = SourcePath("tests/sql/meaning/");
  for (const TextCase& one : ReadCaseFile(folder + file + ".case")) {
    SCOPED_TRACE(one.where);
    const bool other_words = engine == Engine::kPostgres && !one.on_postgres.empty();
    EXPECT_EQ(books.Answer(one.input), other_words ? one.on_postgres : one.expected);
    if (!one.on_postgres.empty()) {
      EXPECT_EQ(NumberOf(one.on_postgres), NumberOf(one.expected));
    }
  }
}

INSTANTIATE_TEST_SUITE_P(
    Files, Meaning,
    testing::Combine(testing::Values(Engine::kSqlite, Engine::kPostgres),
                     testing::Values("casts", "dates", "flags", "grouping", "joins", "money",
                                     "nulls", "subqueries", "texts", "top", "whole")),
    [](const auto& setup) {
      return std::string(std::get<0>(setup.param) == Engine::kSqlite ? "Sqlite_" : "Postgres_") +
             std::get<1>(setup.param);
    });

}  // namespace
}  // namespace pstolvane1::sql
