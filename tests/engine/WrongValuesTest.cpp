// A stored value that is not of its column's type fails every statement that touches the column.
#include <gmock/gmock.h>

#include "session/engine/sqlite/ColumnCheck.h"
#include "tests/engine/SameExit.h"
#include "tests/engine/TestBooks.h"
#include "tests/engine/WrongValues.h"

namespace pstolvane1::sqlite {
namespace {

using testing::ElementsAre;

struct Wrong {
  const char* column;
  const char* good;
  const char* stored;  // as SQLite takes it
  const char* error;
};

const std::vector<Wrong> kWrong{
    {"qty", "5", "'NaN'", "13 t.qty holds \"NaN\", which is not a number"},
    {"qty", "5", "'hello'", "13 t.qty holds \"hello\", which is not a number"},
    {"qty", "5", "''", "13 t.qty holds \"\", which is not a number"},
    {"qty", "5", "x'31'", "13 t.qty holds binary data, which is not a number"},
    {"qty", "5", "9e999", "13 t.qty holds \"Infinity\", which is not a number"},
    {"qty", "5", "-9e999", "13 t.qty holds \"-Infinity\", which is not a number"},
    {"rate", "2.5", "'NaN'", "13 t.rate holds \"NaN\", which is not an amount of money"},
    {"rate", "2.5", "'1,200.50'", "13 t.rate holds \"1,200.50\", which is not an amount of money"},
    {"weight", "1.25", "'heavy'", "13 t.weight holds \"heavy\", which is not a number"},
    {"share", "0.5", "x''", "13 t.share holds binary data, which is not a number"},
    {"day", "'2004-03-31'", "'2004-13-45'", "13 t.day holds \"2004-13-45\", which is not a date"},
    {"day", "'2004-03-31'", "'2005-02-29'", "13 t.day holds \"2005-02-29\", which is not a date"},
    {"day", "'2004-03-31'", "'0000-00-00'", "13 t.day holds \"0000-00-00\", which is not a date"},
    {"day", "'2004-03-31'", "'10000-01-01'", "13 t.day holds \"10000-01-01\", which is not a date"},
    {"day", "'2004-03-31'", "''", "13 t.day holds \"\", which is not a date"},
    {"day", "'2004-03-31'", "'hello'", "13 t.day holds \"hello\", which is not a date"},
    {"day", "'2004-03-31'", "38077", "13 t.day holds 38077, which is not a date"},
    {"moment", "'2004-03-31'", "'2004-03-31 25:00'",
     "13 t.moment holds \"2004-03-31 25:00\", which is not a date"},
};

TEST(WrongValues, FailEveryStatementThatTouchesTheColumn) {
  for (const Wrong& wrong : kWrong) {
    TestBooks books(kTableInOrder);
    const auto provider = std::make_shared<SqliteProvider>(books.Path(), kNoLimit);
    ExpectNoneFails(*provider, wrong.column, wrong.good);
    books.Write(std::string("UPDATE t SET ") + wrong.column + " = " + wrong.stored +
                " WHERE id = 2");
    ExpectEachFails(*provider, wrong.column, wrong.good, wrong.error);
    EXPECT_THAT(Lines(*provider, "SELECT id FROM t"), ElementsAre("1", "2")) << "not touched";
    books.Write(std::string("UPDATE t SET ") + wrong.column + " = NULL WHERE id = 2");
    ExpectNoneFails(*provider, wrong.column, wrong.good);
  }
}

TEST(WrongValues, OfWholeNumbersFlagsAndTextsFailToo) {
  for (const auto& [declared, stored, what] :
       {std::tuple{"INTEGER", "'x'", "\"x\", which is not a whole number"},
        {"INTEGER", "1.5", "1.5, which is not a whole number"},
        {"BIGINT", "x'00'", "binary data, which is not a whole number"},
        {"BIT", "'True'", "\"True\", which is not a flag"},
        {"BIT", "0.5", "0.5, which is not a flag"},
        {"VARCHAR(20)", "x'41'", "binary data, which is not a text"}}) {
    const TestBooks books(std::string("CREATE TABLE t (id INTEGER, c ") + declared +
                          "); INSERT INTO t VALUES (1, 1), (2, NULL), (3, " + stored + ")");
    const auto provider = std::make_shared<SqliteProvider>(books.Path(), kNoLimit);
    for (const char* statement :
         {"SELECT c FROM t WHERE id = 1", "SELECT id FROM t WHERE c = 1",
          "SELECT a.id FROM t a INNER JOIN t b ON a.c = b.id", "SELECT count(c) AS n FROM t"}) {
      EXPECT_EQ(ErrorOf([&] { (void)Lines(*provider, statement); }),
                std::string("13 t.c holds ") + what)
          << statement;
    }
  }
}

TEST(WrongValues, BehindAViewFailWhateverTheViewMakesOfThem) {
  const TestBooks books(
      "CREATE TABLE t (id INTEGER, qty REAL); INSERT INTO t VALUES (1, 5), (2, 'NaN');"
      "CREATE VIEW v AS SELECT sum(qty) AS s FROM t; CREATE VIEW w AS SELECT s * 2 AS s FROM v;"
      "CREATE VIEW u AS SELECT id FROM t");
  const auto provider = std::make_shared<SqliteProvider>(books.Path(), kNoLimit);
  for (const char* statement : {"SELECT s FROM v", "SELECT s FROM w"}) {
    EXPECT_EQ(ErrorOf([&] { (void)Lines(*provider, statement); }),
              "13 t.qty holds \"NaN\", which is not a number");
  }
  EXPECT_THAT(Lines(*provider, "SELECT id FROM u"), ElementsAre("1", "2"));
}

TEST(WrongValues, AreThoseOfTheStateThatIsRead) {
  TestBooks books(
      "PRAGMA journal_mode=WAL; CREATE TABLE t (id INTEGER, qty REAL);"
      "INSERT INTO t VALUES (1, 5)");
  const auto provider = std::make_shared<SqliteProvider>(books.Path(), kNoLimit);
  const auto before = provider->TakeSnapshot(kNoLimit);
  EXPECT_THAT(Lines(*before, "SELECT id FROM t"), ElementsAre("1"));
  books.Write("UPDATE t SET qty = 'NaN'");
  EXPECT_THAT(Lines(*before, "SELECT sum(qty) AS s FROM t"), ElementsAre("5"));
  EXPECT_EQ(ErrorOf([&] { (void)Lines(*provider, "SELECT sum(qty) AS s FROM t"); }),
            "13 t.qty holds \"NaN\", which is not a number");
}

TEST(WrongValues, AreLookedForInMoreColumnsThanAFunctionTakes) {
  std::string columns = "id INTEGER";
  std::string names;
  for (int i = 0; i < 150; ++i) {
    columns += ", c" + std::to_string(i) + " INTEGER";
    names += (i > 0 ? ", c" : "c") + std::to_string(i);
  }
  TestBooks books("CREATE TABLE t (" + columns + "); INSERT INTO t (id) VALUES (1)");
  const auto provider = std::make_shared<SqliteProvider>(books.Path(), kNoLimit);
  EXPECT_EQ(Lines(*provider, "SELECT " + names + " FROM t").size(), 1U);
  for (const char* column : {"c0", "c59", "c60", "c61", "c120", "c149"}) {
    books.Write(std::string("UPDATE t SET ") + column + " = 'x'");
    EXPECT_EQ(ErrorOf([&] { (void)Lines(*provider, "SELECT " + names + " FROM t"); }),
              std::string("13 t.") + column + " holds \"x\", which is not a whole number");
    books.Write(std::string("UPDATE t SET ") + column + " = NULL");
  }
}

TEST(WrongValues, AreLookedForOnceInAStateOfTheBooks) {
  TestBooks books("CREATE TABLE t (id INTEGER, qty REAL); INSERT INTO t VALUES (1, 5)");
  Watch watch(kNoLimit);
  Database database(books.Path(), watch);
  ColumnCheck check;
  const std::vector<TableColumn> columns{{"t", "qty", sql::Type::kSingle}};
  const auto look = [&] {
    const Database::Running running(database, watch);
    return ErrorOf([&] { check.Check(database, columns); });
  };
  check.BeginState(1);
  EXPECT_EQ(look(), "no error");
  books.Write("UPDATE t SET qty = 'NaN'");
  EXPECT_EQ(look(), "no error") << "the state is said to be the same";
  check.BeginState(2);
  EXPECT_EQ(look(), "13 t.qty holds \"NaN\", which is not a number");
  books.Write("UPDATE t SET qty = 5");
  EXPECT_EQ(look(), "no error") << "what failed is looked at again";
}

TEST(WrongValues, AreLookedForOnceByConnectionsThatReadOneState) {
  TestBooks books("CREATE TABLE t (id INTEGER, qty REAL); INSERT INTO t VALUES (1, 5)");
  Watch watch(kNoLimit);
  Database database(books.Path(), watch);
  ColumnCheck first, second;
  const auto look = [&](ColumnCheck& check, const char* column) {
    const Database::Running running(database, watch);
    const std::vector<TableColumn> columns{{"t", column, sql::Type::kSingle}};
    return ErrorOf([&] { check.Check(database, columns); });
  };
  first.BeginState(1);
  second.BeginState(7, first);
  EXPECT_EQ(look(first, "qty"), "no error");
  EXPECT_EQ(look(second, "id"), "no error");
  books.Write("UPDATE t SET id = 'x', qty = 'NaN'");
  EXPECT_EQ(look(second, "qty"), "no error") << "the first has looked at it";
  EXPECT_EQ(look(first, "id"), "no error") << "the second has";
  first.BeginState(2);
  EXPECT_EQ(look(first, "qty"), "13 t.qty holds \"NaN\", which is not a number");
  EXPECT_EQ(look(second, "qty"), "no error") << "the second still reads the state before";
}

TEST(SameExit, OfAFile) {
  const TestBooks books(kTablesOfSameExit);
  ExpectSameExits(*std::make_shared<SqliteProvider>(books.Path(), kNoLimit));
}

}  // namespace
}  // namespace pstolvane1::sqlite
