// What the front end writes for SQLite, the types of its columns, and what it refuses.
#include <gtest/gtest.h>
#include <string>

#include "session/data/Error.h"
#include "session/sql/Translate.h"
#include "tests/SourcePath.h"
#include "tests/sql/CaseFile.h"
#include "tests/sql/SqliteBooks.h"

namespace pstolvane1::sql {
namespace {

// The tables of the cases: every type of the dialect once.
constexpr const char* kTables =
    "CREATE TABLE Item (Item_id INTEGER PRIMARY KEY, Name VARCHAR(20) COLLATE NOCASE, Deleted BIT,"
    " Sold BOOLEAN, State SMALLINT, Big BIGINT, Qty REAL, Ratio DOUBLE PRECISION,"
    " Rate DECIMAL(19,4), Weight DECIMAL(12,6), Born DATE, Seen DATETIME, Note TEXT);"
    "CREATE TABLE Move (Move_id INT, Item_id INT, Qty REAL, Rate MONEY, Added BIT, Date DATE);"
    "CREATE INDEX MoveItem ON Move (Item_id, Date);";

Catalog CaseCatalog() {
  const auto table = [](const char* name, std::initializer_list<const char*> columns) {
    CatalogTable described{name, {}};
    for (const std::string column : columns) {
      const std::size_t blank = column.find(' ');
      described.columns.push_back(
          ColumnOfDeclaration(column.substr(0, blank), column.substr(blank + 1)).value());
    }
    return described;
  };
  return Catalog(
      {table("Item", {"Item_id INTEGER", "Name VARCHAR(20)", "Deleted BIT", "Sold BOOLEAN",
                      "State SMALLINT", "Big BIGINT", "Qty REAL", "Ratio DOUBLE PRECISION",
                      "Rate DECIMAL(19,4)", "Weight DECIMAL(12,6)", "Born DATE", "Seen DATETIME",
                      "Note TEXT"}),
       table("Move",
             {"Move_id INT", "Item_id INT", "Qty REAL", "Rate MONEY", "Added BIT", "Date DATE"})});
}

// "text" and, on a second line, "name: type, name: type(size)".
std::string Told(const Translation& translation) {
  std::string told = translation.text;
  const char* separator = "\n";
  for (const ResultColumn& column : translation.columns) {
    told += separator + column.name + ": " + std::string(NameOf(column.type));
    if (column.size != 0) told += "(" + std::to_string(column.size) + ")";
    separator = ", ";
  }
  return told;
}

class TranslateCases : public testing::TestWithParam<const char*> {};

TEST_P(TranslateCases, GiveWhatTheFileSays) {
  const Catalog catalog = CaseCatalog();
  PreparingBooks books(kTables);
  const std::string folder = SourcePath("tests/sql/sqlite/");
  for (const TextCase& one : ReadCaseFile(folder + GetParam() + ".case")) {
    SCOPED_TRACE(one.where);
    try {
      const Translation translation = TranslateForSqlite(one.input, catalog);
      EXPECT_EQ(Told(translation), one.expected);
      EXPECT_EQ(books.WhyNotPrepared(translation.text), "");
      EXPECT_FALSE(one.is_error);
    } catch (const Error& error) {
      EXPECT_EQ(error.Number(), ErrorNumber::kQueryRefused);
      EXPECT_EQ(error.Description(), one.expected);
      EXPECT_TRUE(one.is_error);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Files, TranslateCases,
                         testing::Values("aggregates", "conditions", "conversions", "dates",
                                         "flags", "functions", "joins", "names", "numbers",
                                         "queries", "refused", "texts", "types"),
                         [](const auto& file) { return std::string(file.param); });

// The plans of what reports ask most: the index serves it.
TEST(Translation, LeavesHotPredicatesToTheIndexes) {
  const Catalog catalog = CaseCatalog();
  PreparingBooks books(kTables);
  const auto plan = [&](const char* select) {
    return books.PlanOf(TranslateForSqlite(select, catalog).text);
  };
  EXPECT_EQ(plan("select qty from move where item_id = 5 and date between '04/01/2003' and "
                 "'03/31/2004'"),
            "SEARCH Move USING INDEX MoveItem (Item_id=? AND Date>? AND Date<?)\n");
  EXPECT_EQ(plan("select m.qty from item i inner join move m on m.item_id = i.item_id where "
                 "i.item_id = 5"),
            "SEARCH i USING INTEGER PRIMARY KEY (rowid=?)\n"
            "SEARCH m USING INDEX MoveItem (Item_id=?)\n");
  EXPECT_EQ(plan("select max(item_id) from item"), "SEARCH Item\n");
}

// SQLite's own limit on the depth of a tree is 1000.
TEST(Translation, LongChainsStayWithinTheDepthOfSqlite) {
  const Catalog catalog = CaseCatalog();
  PreparingBooks books(kTables);
  std::string select = "select 1 as x from item where item_id = 0";
  for (int i = 1; i < 5000; ++i) select += " or item_id = " + std::to_string(i);
  EXPECT_EQ(books.WhyNotPrepared(TranslateForSqlite(select, catalog).text), "");
}

TEST(Translation, KeepsTheTypesThroughDerivedTablesUnionsAndCases) {
  const Translation translation = TranslateForSqlite(
      "select a.* from (select deleted as f, born as d, rate / 3 as r, case when qty > 0 then qty "
      "else 0 end as q from item union select 0, '2004-03-31', 0, 1 from move) as a",
      CaseCatalog());
  ASSERT_EQ(translation.columns.size(), 4U);
  EXPECT_EQ(translation.columns[0].type, Type::kWhole);
  EXPECT_EQ(translation.columns[1].type, Type::kDate);
  EXPECT_EQ(translation.columns[2].type, Type::kMoney);
  EXPECT_EQ(translation.columns[3].type, Type::kSingle);
}

}  // namespace
}  // namespace pstolvane1::sql
