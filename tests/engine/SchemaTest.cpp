#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "session/engine/Engines.h"
#include "session/engine/sqlite/Schema.h"
#include "session/engine/sqlite/ViewText.h"
#include "tests/engine/TestBooks.h"

namespace pstolvane1::sqlite {
namespace {

using testing::ElementsAre;

// "Name type size, ..." of a table's columns; "none" when the catalog does not have it.
std::string Columns(const std::string& statements, std::string_view table) {
  const TestBooks books(statements);
  std::string told = "none";
  Watch watch(kNoLimit);
  Database database(books.Path(), watch);
  const sql::Catalog catalog = ReadCatalog(database, sql::TranslateForSqlite, watch);
  if (const sql::CatalogTable* found = catalog.Find(table)) {
    told.clear();
    for (const sql::CatalogColumn& column : found->columns) {
      told += (told.empty() ? "" : ", ") + column.name + " " + std::string(NameOf(column.type));
      if (column.size > 0) told += " " + std::to_string(column.size);
    }
  }
  return told;
}

constexpr const char* kMoves =
    "CREATE TABLE Moves (Id INTEGER PRIMARY KEY, Item VARCHAR(40), Qty REAL, Rate DECIMAL(19,4),"
    " Day DATE, IsAdded BIT, Photo BLOB, Bare);";

TEST(Schema, ColumnsHaveTheirDeclaredTypes) {
  EXPECT_EQ(Columns(kMoves, "MOVES"),
            "Id whole number, Item text 40, Qty single, Rate money, Day date, IsAdded flag");
}

TEST(Schema, AColumnOfATypeThatIsNotReadIsNamedWithIt) {
  const TestBooks books(kMoves);
  EXPECT_EQ(
      ErrorOf([&] {
        (void)OpenDatabase(books.Path(), kNoLimit)->Translate("select Id, photo from Moves");
      }),
      "-2147217900 line 1, column 12: the column \"photo\" of \"Moves\" has the type \"BLOB\", "
      "which is none that the reports can read");
}

TEST(Schema, GeneratedColumnsAreThere) {
  EXPECT_EQ(Columns("CREATE TABLE t (a INTEGER, b BIGINT AS (a * 2), c REAL AS (a) STORED)", "t"),
            "a whole number, b big whole number, c single");
}

TEST(Schema, AViewsColumnsAreThoseOfItsTables) {
  EXPECT_EQ(Columns(std::string(kMoves) +
                        "CREATE VIEW Added AS SELECT Id, Item AS Name, Rate FROM Moves WHERE "
                        "IsAdded;",
                    "Added"),
            "Id whole number, Name text 40, Rate money");
}

TEST(Schema, AViewsExpressionsHaveTheKindThatTheFrontEndFinds) {
  EXPECT_EQ(Columns(std::string(kMoves) +
                        "CREATE VIEW Later (n, v, d, t) AS SELECT Rows + 1, Value, Last, Name FROM "
                        "Grouped;"
                        "CREATE VIEW Grouped AS SELECT Item AS Name, count(*) AS Rows, sum(Qty * "
                        "Rate) AS Value, max(Day) AS Last FROM Moves GROUP BY Item;",
                    "Later"),
            "n real number, v real number, d date, t text 40");
}

TEST(Schema, WhatTheFrontEndCannotReadIsLeftOut) {
  EXPECT_EQ(Columns(std::string(kMoves) +
                        "CREATE VIEW Odd AS SELECT Id, strftime('%Y', Day) AS Y FROM Moves;",
                    "Odd"),
            "Id whole number");
}

TEST(Schema, ABrokenViewDoesNotStopTheBooksFromBeingOpened) {
  const std::string statements =
      "CREATE TABLE t (a INTEGER); CREATE VIEW Broken AS SELECT b FROM gone;";
  EXPECT_EQ(Columns(statements, "t"), "a whole number");
  EXPECT_EQ(Columns(statements, "Broken"), "none");
}

TEST(Schema, TheEnginesOwnTablesAreNotThere) {
  const std::string statements =
      "CREATE TABLE t (a INTEGER PRIMARY KEY AUTOINCREMENT); CREATE TABLE sqlitebooks (a INTEGER);"
      "ANALYZE;";
  EXPECT_EQ(Columns(statements, "sqlite_sequence"), "none");
  EXPECT_EQ(Columns(statements, "sqlite_schema"), "none");
  EXPECT_EQ(Columns(statements, "sqlite_stat1"), "none");
  EXPECT_EQ(Columns(statements, "sqlitebooks"), "a whole number");
}

TEST(Schema, TheSelectOfAViewIsFoundBehindItsFirstAs) {
  struct Case {
    const char* create;
    const char* body;
  };
  for (const Case& each : {
           Case{"CREATE VIEW v AS SELECT 1", " SELECT 1"},
           Case{"CREATE VIEW [as] as(SELECT 1)", "(SELECT 1)"},
           Case{"CREATE VIEW \"x as y\" /* as */ (a, \"b\") AS\nSELECT 1 AS a, 2",
                "\nSELECT 1 AS a, 2"},
           Case{"CREATE VIEW v -- as\nAS SELECT 1", " SELECT 1"},
           Case{"CREATE VIEW class AS SELECT 1", " SELECT 1"},
           Case{"CREATE VIEW 'it''s as' AS SELECT 1", " SELECT 1"},
           Case{"CREATE VIEW v", ""},
           Case{"CREATE VIEW [v", ""},
           Case{"", ""},
       }) {
    EXPECT_EQ(BodyOfView(each.create), each.body) << each.create;
  }
}

}  // namespace
}  // namespace pstolvane1::sqlite
