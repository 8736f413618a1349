// The front end and the engine together, on books of the reference schema.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "session/books/Schema.h"
#include "session/engine/Engines.h"
#include "tests/engine/TestBooks.h"

namespace pstolvane1::sqlite {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

class Dialect : public testing::Test {
 protected:
  std::vector<std::string> Read(std::string_view select) { return Lines(*provider_, select); }
  std::string ErrorOfReading(std::string_view select) {
    return ErrorOf([&] { Read(select); });
  }

  const TestBooks books_{
      books::SqliteSchema() +
      "INSERT INTO Items1 (Item_id, ItemName, MaintainBatches, RelationFormula) VALUES"
      "  (1, 'Bolt', 1, 12.0), (2, 'bolt  ', 0, NULL), (3, 'Nut', -1, 0.5), (4, NULL, NULL, 0);"
      "INSERT INTO StandardRate1 (Item_id, Rate, DateFrom, DateTo, YearNo, SaleOrPurchase) VALUES"
      "  (1, 0.1, '2004-04-01', '2005-03-31', 4, 0), (1, 0.2, '2004-04-01', NULL, 4, -1),"
      "  (3, 12.3456, '2003-12-31 10:30:00', '2004-03-31', 3, 0);"};
  const std::shared_ptr<Provider> provider_ = OpenDatabase(books_.Path(), milliseconds(5000));
};

TEST_F(Dialect, ColumnsKeepTheirTypes) {
  const std::string select =
      "SELECT i.Item_id, ItemName, MaintainBatches, RelationFormula, Rate, DateFrom FROM Items1 AS "
      "i INNER JOIN StandardRate1 AS s ON i.Item_id = s.Item_id ORDER BY Rate";
  std::string types;
  for (const ColumnInfo& column : provider_->Describe(select)) {
    types += column.name + " " + std::to_string(column.type) + " ";
  }
  EXPECT_EQ(types,
            "Item_id 3 ItemName 200 MaintainBatches 11 RelationFormula 4 Rate 6 DateFrom 7 ");
  EXPECT_THAT(Read(select),
              ElementsAre("1|Bolt|-1|12|0.1000|2004-04-01", "1|Bolt|-1|12|0.2000|2004-04-01",
                          "3|Nut|-1|0.5|12.3456|2003-12-31 10:30:00"));
}

TEST_F(Dialect, TextsMeetWithoutCaseAndTrailingBlanks) {
  EXPECT_THAT(Read("SELECT Item_id FROM Items1 WHERE ItemName = 'BOLT' ORDER BY Item_id"),
              ElementsAre("1", "2"));
  EXPECT_THAT(Read("SELECT Item_id FROM Items1 WHERE ItemName LIKE 'b_L%' ORDER BY Item_id"),
              ElementsAre("1", "2"));
  EXPECT_THAT(Read("SELECT Count(*) AS n FROM Items1 GROUP BY ItemName ORDER BY ItemName"),
              ElementsAre("1", "2", "1"));
}

TEST_F(Dialect, MoneyIsSummedExactly) {
  EXPECT_THAT(Read("SELECT Sum(Rate) AS s FROM StandardRate1 WHERE Item_id = 1"),
              ElementsAre("0.3000"));
  EXPECT_THAT(Read("SELECT Item_id FROM StandardRate1 GROUP BY Item_id HAVING Sum(Rate) = 0.3"),
              ElementsAre("1"));
}

TEST_F(Dialect, DatesMeetTextsOfTheHost) {
  EXPECT_THAT(Read("SELECT Rate FROM StandardRate1 WHERE DateFrom < '04/01/2004 '"),
              ElementsAre("12.3456"));
  EXPECT_THAT(Read("SELECT Year(DateFrom) * 100 + Month(DateFrom) AS Inc_Id FROM StandardRate1 "
                   "WHERE Item_id = 3"),
              ElementsAre("200312"));
}

TEST_F(Dialect, WhatFailsInARowHasItsNumber) {
  EXPECT_THAT(ErrorOfReading("SELECT 1 / RelationFormula AS x FROM Items1"),
              AllOf(StartsWith("11 "), HasSubstr("division by zero")));
  EXPECT_THAT(ErrorOfReading("SELECT Item_id / (Item_id - 3) AS x FROM Items1"),
              AllOf(StartsWith("11 "), HasSubstr("division by zero")));
  EXPECT_THAT(ErrorOfReading("SELECT Item_id * 2147483647 AS x FROM Items1"),
              AllOf(StartsWith("6 "), HasSubstr("out of range")));
  EXPECT_THAT(ErrorOfReading("SELECT CAST(ItemName AS INT) AS x FROM Items1"),
              AllOf(StartsWith("13 "), HasSubstr("\"Bolt\" is not a whole number")));
  EXPECT_THAT(ErrorOfReading("SELECT (SELECT Rate FROM StandardRate1 WHERE Item_id = 1) AS x FROM "
                             "Items1"),
              AllOf(StartsWith("-2147217900 "), HasSubstr("more than one row")));
  EXPECT_THAT(Read("SELECT Count(*) AS n FROM Items1"), ElementsAre("4")) << "it goes on";
}

TEST_F(Dialect, ConditionsThatTryToWriteAreRefusedWithTheirPlace) {
  for (const char* condition : {"1 = 1; DELETE FROM Items1", "1 = 1; DROP TABLE Items1 --",
                                "Item_id = 1 UNION SELECT name "
                                "FROM sqlite_master",
                                "load_extension('x') = 1", "Item_id IN (SELECT 1 INTO t)",
                                "1 = 1; ATTACH 'x' AS y", "EXISTS (DELETE FROM Items1)"}) {
    EXPECT_THAT(ErrorOfReading(std::string("SELECT Item_id FROM Items1 WHERE ") + condition),
                AllOf(StartsWith("-2147217900 "), HasSubstr("line 1, column ")))
        << condition;
  }
}

TEST_F(Dialect, LockedTablesOfTheEngineAreOutOfReach) {
  for (const char* table : {"sqlite_master", "sqlite_schema", "sqlite_temp_master",
                            "[sqlite_master]", "pragma_table_info"}) {
    EXPECT_THAT(ErrorOfReading(std::string("SELECT name FROM ") + table),
                StartsWith("-2147217900 "))
        << table;
  }
}

TEST(Engines, OpenTheSameBooksByPathAndByUrl) {
  const TestBooks books(books::SqliteSchema());
  const std::string bytes = books.Bytes();
  for (const std::string& text :
       {books.Path(), "sqlite:///" + books.Path(), "sqlite://" + books.Path()}) {
    EXPECT_THAT(Lines(*OpenDatabase(text, kNoLimit), "SELECT Count(*) AS n FROM Items1"),
                ElementsAre("0"))
        << text;
  }
  const std::filesystem::path here = std::filesystem::current_path();
  std::filesystem::current_path(books.Folder().Path());
  EXPECT_THAT(
      Lines(*OpenDatabase("sqlite:///books.db", kNoLimit), "SELECT Count(*) AS n FROM Items1"),
      ElementsAre("0"));
  std::filesystem::current_path(here);
  EXPECT_EQ(books.Bytes(), bytes);
  EXPECT_THAT(std::distance(std::filesystem::directory_iterator(books.Folder().Path()), {}), 1);
}

TEST(Engines, ThatAreNotBuiltAreNamed) {
  const auto error_of = [](const char* text) {
    return ErrorOf([&] { static_cast<void>(OpenDatabase(text, kNoLimit)); });
  };
  EXPECT_EQ(error_of("Driver={x};Pwd=secret"),
            "501 The connection string names ODBC, which this build of the library does not have.");
}

TEST(Engines, AConnectionOpensTheBooksAndReportsWhyItCannot) {
  const TestBooks books(books::SqliteSchema());
  const auto connection = NewConnection();
  connection->Open(books.Path());
  EXPECT_EQ(connection->State(), adStateOpen);
  connection->Close();
  const auto other = NewConnection();
  EXPECT_THAT(ErrorOf([&] { other->Open(books.Folder().File("none.db")); }),
              AllOf(StartsWith("501 "), HasSubstr("there is no such file")));
}

}  // namespace
}  // namespace pstolvane1::sqlite
