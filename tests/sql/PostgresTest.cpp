// What the front end writes for PostgreSQL, the types of its columns, what it refuses, and that a
// server takes all of it.
#include <gtest/gtest.h>
#include <string>

#include "session/books/Schema.h"
#include "session/data/Error.h"
#include "session/engine/Engines.h"
#include "session/sql/Translate.h"
#include "tests/SourcePath.h"
#include "tests/server/Server.h"
#include "tests/sql/CaseFile.h"
#include "tests/sql/ReportQueryFiles.h"

namespace pstolvane1::sql {
namespace {

// The tables of the cases: every type of the dialect once.
constexpr const char* kTables =
    "CREATE TABLE \"Item\" (\"Item_id\" int PRIMARY KEY, \"Name\" varchar(20), \"Deleted\" boolean,"
    " \"Sold\" boolean, \"State\" int, \"Big\" bigint, \"Qty\" float8, \"Ratio\" float8,"
    " \"Rate\" numeric(19,4), \"Weight\" numeric(12,6), \"Born\" date, \"Seen\" timestamp,"
    " \"Note\" text);"
    "CREATE TABLE \"Move\" (\"Move_id\" int, \"Item_id\" int, \"Qty\" float8, \"Rate\" "
    "numeric(19,4), \"Added\" boolean, \"Date\" date);";

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
      {table("Item",
             {"Item_id INTEGER", "Name VARCHAR(20)", "Deleted BIT", "Sold BOOLEAN", "State INTEGER",
              "Big BIGINT", "Qty REAL", "Ratio DOUBLE PRECISION", "Rate DECIMAL(19,4)",
              "Weight DECIMAL(12,6)", "Born DATE", "Seen DATETIME", "Note TEXT"}),
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

class PostgresCases : public testing::TestWithParam<const char*> {};

TEST_P(PostgresCases, GiveWhatTheFileSaysAndTheServerTakesIt) {
  const Catalog catalog = CaseCatalog();
  const Scratch scratch(kTables);
  ServerSession server(scratch.ConnectionString());
  const std::string folder = SourcePath("tests/sql/postgres/");
  for (const TextCase& one : ReadCaseFile(folder + GetParam() + ".case")) {
    SCOPED_TRACE(one.where);
    try {
      const Translation translation = TranslateForPostgres(one.input, catalog);
      EXPECT_EQ(Told(translation), one.expected);
      EXPECT_NO_THROW(server.Run("EXPLAIN " + translation.text));
      EXPECT_FALSE(one.is_error);
    } catch (const Error& error) {
      EXPECT_EQ(error.Number(), ErrorNumber::kQueryRefused);
      EXPECT_EQ(error.Description(), one.expected);
      EXPECT_TRUE(one.is_error);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Files, PostgresCases,
                         testing::Values("aggregates", "conversions", "numbers", "queries",
                                         "refused", "texts", "values"),
                         [](const auto& file) { return std::string(file.param); });

// How a column is read is written behind its name wherever it stands.
TEST(PostgresTranslation, ReadsColumnsAsTheirTypes) {
  CatalogColumn real{.name = "qty", .type = Type::kSingle};
  real.reading = "::text::float8";
  const Catalog catalog({{"move", {real}}});
  EXPECT_EQ(TranslateForPostgres("select qty, -qty as n from move where qty > 1", catalog).text,
            "SELECT \"move\".\"qty\"::text::float8 AS \"qty\", -\"move\".\"qty\"::text::float8 AS "
            "\"n\" FROM \"move\" WHERE \"move\".\"qty\"::text::float8 > 1::float8");
}

// What no ORDER BY orders comes by the keys of the tables, also through derived tables that do not
// select them; groups come by what they are made of.
TEST(PostgresTranslation, RowsThatNothingOrdersComeByTheirKeys) {
  const auto whole = [](const char* name) {
    return CatalogColumn{.name = name, .type = Type::kWhole};
  };
  const Catalog catalog({{"a", {whole("id"), whole("x")}, {"id"}},
                         {"b", {whole("a_id"), whole("y")}, {"a_id", "ctid"}}});
  const auto text = [&](const char* select) { return TranslateForPostgres(select, catalog).text; };
  EXPECT_EQ(text("select x from a order by x desc"),
            "SELECT \"a\".\"x\" AS \"x\" FROM \"a\" ORDER BY 1 DESC NULLS LAST, \"a\".\"id\" NULLS "
            "FIRST");
  EXPECT_EQ(
      text("select q.y from (select x, y from a inner join b on id = a_id) as q"),
      "SELECT \"q\".\"y\" AS \"y\" FROM (SELECT \"a\".\"x\" AS \"x\", \"b\".\"y\" AS \"y\", "
      "\"a\".\"id\" AS \"key~1\", \"b\".\"a_id\" AS \"key~2\", \"b\".\"ctid\" AS \"key~3\" "
      "FROM \"a\" JOIN \"b\" ON \"a\".\"id\" = \"b\".\"a_id\") AS \"q\" ORDER BY "
      "\"q\".\"key~1\" NULLS FIRST, \"q\".\"key~2\" NULLS FIRST, \"q\".\"key~3\" NULLS FIRST");
  EXPECT_EQ(text("select x, count(*) as n from a group by x"),
            "SELECT \"a\".\"x\" AS \"x\", count(*)::int4 AS \"n\" FROM \"a\" GROUP BY \"a\".\"x\" "
            "ORDER BY \"a\".\"x\" NULLS FIRST");
  EXPECT_EQ(text("select x from a union select y from b"),
            "SELECT \"a\".\"x\" AS \"x\" FROM \"a\" UNION SELECT \"b\".\"y\" AS \"y\" FROM \"b\" "
            "ORDER BY 1 NULLS FIRST");
  EXPECT_EQ(text("select x from a where x in (select y from b)"),
            "SELECT \"a\".\"x\" AS \"x\" FROM \"a\" WHERE \"a\".\"x\" IN (SELECT \"b\".\"y\" AS "
            "\"y\" FROM \"b\") ORDER BY \"a\".\"id\" NULLS FIRST");
}

// Nothing in the emitter knows a report: whatever they send is written, and the server takes it.
TEST(PostgresReportQueries, AllAreWrittenAndTheServerTakesThem) {
  const Scratch scratch(books::PostgresSchema());
  ServerSession server(scratch.ConnectionString());
  const auto books = OpenDatabase(scratch.ConnectionString(), std::chrono::seconds(10));
  std::size_t selects = 0;
  for (const std::filesystem::path& file : QueryFiles(false)) {
    SCOPED_TRACE(file);
    for (const std::string& select : SelectsOf(file)) {
      ++selects;
      EXPECT_NO_THROW(server.Run("EXPLAIN " + books->Translate(select)));
    }
  }
  EXPECT_GT(selects, 250U);
}

TEST(PostgresTranslation, LongChainsStayWithinTheServersLimits) {
  std::string select = "select 1 as x from item where item_id = 0";
  for (int i = 1; i < 5000; ++i) select += " or item_id = " + std::to_string(i);
  const Scratch scratch(kTables);
  ServerSession server(scratch.ConnectionString());
  EXPECT_NO_THROW(server.Run("EXPLAIN " + TranslateForPostgres(select, CaseCatalog()).text));
}

}  // namespace
}  // namespace pstolvane1::sql
