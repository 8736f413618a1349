#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "session/engine/sqlite/Guard.h"
#include "tests/engine/TestBooks.h"

namespace pstolvane1::sqlite {
namespace {

using testing::AnyOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

constexpr const char* kBooks =
    "CREATE TABLE Items1 (Item_id INTEGER PRIMARY KEY, ItemName VARCHAR(40));"
    "INSERT INTO Items1 VALUES (1, 'Bolt'), (2, 'Nut');"
    "CREATE VIEW Spy AS SELECT name FROM sqlite_schema;"
    "CREATE VIEW Recent AS SELECT Item_id, date('2004-03-31') AS d, soundex(ItemName) AS s,"
    "  hex(ItemName) AS h FROM Items1 WHERE ItemName LIKE 'b%';"
    "CREATE VIEW Counted AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE "
    "i < 3) SELECT i FROM n;";

// What the front end would never write: the texts go to the engine as they stand.
TEST(Guard, StopsWhateverIsNotASelectionFromTheBooks) {
  const TestBooks books(kBooks);
  const std::string bytes = books.Bytes();
  {
    const auto provider = OpenPlain(books.Path());
    const auto snapshot = provider->TakeSnapshot(kNoLimit);
    const auto error_of = [&](const std::string& text) {
      return ErrorOf([&] { Lines(*snapshot, "whole A: " + text); });
    };
    constexpr const char* kPreparing = "-2147217900 while preparing a statement: ";
    constexpr const char* kOther = "the statement does something other than selecting";
    for (const char* text :
         {"INSERT INTO Items1 VALUES (3, 'x')", "UPDATE Items1 SET ItemName = 'x'",
          "DELETE FROM Items1", "DROP TABLE Items1", "CREATE TABLE t (a)",
          "CREATE TEMP TABLE t (a)", "CREATE INDEX i ON Items1 (ItemName)",
          "ALTER TABLE Items1 ADD COLUMN x", "PRAGMA query_only = 0", "PRAGMA user_version",
          "ATTACH ':memory:' AS x", "DETACH main", "BEGIN", "COMMIT", "ROLLBACK", "SAVEPOINT s",
          "ANALYZE", "REPLACE INTO Items1 VALUES (1, 'x')"}) {
      EXPECT_EQ(error_of(text), std::string(kPreparing) + kOther) << text;
    }
    for (const char* table : {"sqlite_schema", "sqlite_master", "sqlite_temp_master"}) {
      EXPECT_THAT(error_of(std::string("SELECT count(name) FROM ") + table),
                  StartsWith(std::string(kPreparing) + "the statement reads sqlite_"))
          << table;
    }
    for (const char* refused : {"SELECT count(name) FROM pragma_table_info('Items1')",
                                "SELECT count(*) FROM json_each('[1]')", "VACUUM", "REINDEX",
                                "VACUUM INTO '/tmp/pst_engine_copy.db'"}) {
      EXPECT_THAT(error_of(refused), StartsWith("-2147217900 ")) << refused;
    }
    EXPECT_EQ(error_of("SELECT count(name) FROM Spy"),
              std::string(kPreparing) +
                  "the statement reads sqlite_master, which is no table of the books");
    EXPECT_EQ(error_of("SELECT load_extension('x')"),
              std::string(kPreparing) + "the statement calls load_extension, which is not allowed");
    EXPECT_EQ(error_of("SELECT length(randomblob(1000000000))"),
              std::string(kPreparing) + "the statement calls randomblob, which is not allowed");
    EXPECT_EQ(error_of("SELECT \"no such column\" FROM Items1"),
              std::string(kPreparing) + "no such column: no such column");
    // The state of the books is still held, and the connection still serves.
    EXPECT_THAT(Lines(*snapshot, "whole A: SELECT count(*) FROM Items1"), ElementsAre("2"));
  }
  EXPECT_EQ(books.Bytes(), bytes);
  EXPECT_FALSE(std::filesystem::exists(books.Path() + "-journal"));
  EXPECT_FALSE(std::filesystem::exists(books.Path() + "-wal"));
}

TEST(Guard, ViewsOfTheBooksMayCallWhatTheyLike) {
  const TestBooks books(kBooks);
  const auto provider = OpenPlain(books.Path());
  EXPECT_THAT(Lines(*provider, "whole I, date D, text S, text H: SELECT * FROM Recent"),
              ElementsAre("1|2004-03-31|B430|426F6C74"));
  EXPECT_THAT(Lines(*provider, "whole N: SELECT sum(i) FROM Counted"), ElementsAre("6"));
}

TEST(Guard, FunctionNamesAreFoundInAnyCase) {
  for (const char* name : {"abs", "Upper", "SUM", "coalesce", "PST_money", "pst_only", "zz", "like",
                           "pst_", "load_extension", "sqlite_version", "random"}) {
    const std::string_view view(name);
    const bool allowed = view != "zz" && view != "pst_" && view != "load_extension" &&
                         view != "sqlite_version" && view != "random";
    EXPECT_EQ(IsAllowedFunction(name), allowed) << name;
  }
}

}  // namespace
}  // namespace pstolvane1::sqlite
