// Books on a PostgreSQL server: made, filled and copied.
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "session/books/BooksFile.h"
#include "session/books/CheckBooks.h"
#include "session/books/CopyBooks.h"
#include "session/books/ImportBooks.h"
#include "session/books/SampleBooks.h"
#include "session/books/Schema.h"
#include "session/data/Error.h"
#include "session/engine/Engines.h"
#include "tests/books/BooksOnDisk.h"
#include "tests/server/OwnServer.h"
#include "tests/server/Server.h"

namespace pstolvane1::books {
namespace {

using test::Database;
using test::Folder;
using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class ServerBooks : public testing::Test {
 protected:
  [[nodiscard]] const std::string& Server() const { return scratch_.ConnectionString(); }
  std::string Ask(const std::string& select) { return scratch_.Run(select); }
  std::string CountTables() {
    return Ask(
        "SELECT count(*) FROM pg_class WHERE relnamespace = "
        "current_schema()::regnamespace AND relkind = 'r'");
  }

  Scratch scratch_;
  Folder folder_;
};

std::string ErrorOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const Error& error) {
    return std::to_string(static_cast<std::int32_t>(error.Number())) + " " + error.Description();
  }
  return "no error";
}

// "Item_id 3 0, ItemName 200 100": the columns as the reports see them.
std::string Columns(Provider& books, std::string_view table) {
  std::string text;
  for (const ColumnInfo& column : books.Describe("select * from " + std::string(table))) {
    text += column.name + " " + std::to_string(column.type) + " " +
            std::to_string(column.defined_size) + ", ";
  }
  return text;
}

TEST_F(ServerBooks, TheReportsSeeTheSameColumnsAsInAFile) {
  CreateBooks(Server());
  CreateBooks(folder_.File("books.db"));
  const auto server = OpenDatabase(Server(), std::chrono::seconds(10));
  const auto file = OpenDatabase(folder_.File("books.db"), std::chrono::seconds(10));
  for (const Table& table : Tables()) {
    EXPECT_EQ(Columns(*server, table.name), Columns(*file, table.name)) << table.name;
  }
}

TEST_F(ServerBooks, IndexesServeWhatTheFrontEndWrites) {
  CreateBooks(Server());
  const auto books = OpenDatabase(Server(), std::chrono::seconds(10));
  const auto plan = [&](const char* select) {
    ServerSession server(Server());
    server.Run("SET enable_seqscan = off; SET enable_bitmapscan = off");
    return server.Run("EXPLAIN (FORMAT json) " + books->Translate(select));
  };
  EXPECT_THAT(plan("select partno from items1 where itemname = 'Bolt '"),
              AllOf(HasSubstr("\"Items1_Name\""), HasSubstr("Index Cond")));
  EXPECT_THAT(plan("select color_id from batches1 where engineno between 'A' and 'B'"),
              AllOf(HasSubstr("\"Batches1_EngineNo\""), HasSubstr("Index Cond")));
  EXPECT_THAT(plan("select narration from desr1 where date between '04/01/2003' and '03/31/2004'"),
              HasSubstr("Index Cond"));
}

TEST_F(ServerBooks, AreNotMadeWhereBooksAre) {
  CreateBooks(Server());
  const std::string there = CountTables();
  for (const auto& make : std::vector<std::function<void()>>{
           [&] { CreateBooks(Server()); }, [&] { SampleBooks(Server()); },
           [&] {
             CreateBooks(folder_.File("from.db"));
             (void)CopyBooks(folder_.File("from.db"), Server());
           }}) {
    EXPECT_THAT(ErrorOf(make),
                AllOf(StartsWith("501 cannot make the books \"postgres\" on \""),
                      HasSubstr(": the schema holds books already; name another schema or remove "
                                "them first")));
  }
  EXPECT_EQ(CountTables(), there);
}

TEST_F(ServerBooks, SampleBooksAreTheSameAsInAFileAndComeBackAsTheyWere) {
  SampleBooks(Server(), 2000, 7);
  SampleBooks(folder_.File("sample.db"), 2000, 7);
  (void)CopyBooks(Server(), folder_.File("back.db"));
  Database sample(folder_.File("sample.db"));
  Database back(folder_.File("back.db"));
  for (const Table& table : Tables()) {
    std::string all;
    for (const Column& column : table.columns) {
      all += (all.empty() ? "quote(" : " || ',' || quote(") + std::string(column.name) + ")";
    }
    const std::string select = "SELECT " + all + " FROM " + std::string(table.name) + " ORDER BY 1";
    EXPECT_EQ(sample.Rows(select), back.Rows(select)) << table.name;
  }
}

TEST_F(ServerBooks, CopiesKeepEverySignAndEveryKindOfValue) {
  CreateBooks(folder_.File("from.db"));
  Database(folder_.File("from.db"))
      .Execute(
          "INSERT INTO Items1 (Item_id, ItemName, RelationFormula, MaintainBatches, Deleted) VALUES"
          " (1, 'a' || char(9) || 'b' || char(10) || 'c\\d' || char(13), 0.1, -1, 0),"
          " (2, '', 1234567.125, NULL, 1), (3, NULL, NULL, 0, NULL), (-4, '\\N', -3, 1, 1);"
          "INSERT INTO StandardRate1 (Item_id, Rate, DateFrom) VALUES (1, 12345.6789, "
          "'2004-02-29'),"
          " (2, -0.05, NULL);"
          "INSERT INTO Terms1 (DesrTerms_id, PromisedDeliveryTime) VALUES (1, '2004-03-31 "
          "14:05:09')");
  const auto copied = CopyBooks(folder_.File("from.db"), Server());
  EXPECT_EQ(copied.size(), Tables().size());
  EXPECT_EQ(
      Ask("SELECT string_agg(concat_ws('|', \"Item_id\", coalesce(quote_literal(\"ItemName\"),"
          " 'null'), \"RelationFormula\", \"MaintainBatches\", \"Deleted\"), ';' ORDER BY "
          "\"Item_id\") FROM \"Items1\""),
      "-4|E'\\\\N'|-3|t|t;1|E'a\tb\nc\\\\d\r'|0.1|t|f;2|''|1234567.125|t;3|null|f");
  EXPECT_EQ(
      Ask("SELECT string_agg(concat_ws('|', \"Rate\", \"DateFrom\"), ';' ORDER BY \"Item_id\")"
          " FROM \"StandardRate1\""),
      "12345.6789|2004-02-29;-0.0500");
  EXPECT_EQ(Ask("SELECT \"PromisedDeliveryTime\" FROM \"Terms1\""), "2004-03-31 14:05:09");
}

TEST_F(ServerBooks, WhatDoesNotFitIsToldAndLeavesNothingBehind) {
  CreateBooks(folder_.File("from.db"));
  Database(folder_.File("from.db"))
      .Execute("INSERT INTO Uom1 (Uom_id, UomName) VALUES (1, 'a unit with a name of many signs')");
  EXPECT_THAT(ErrorOf([&] { (void)CopyBooks(folder_.File("from.db"), Server()); }),
              AllOf(StartsWith("501 while copying Uom1: cannot write the books "),
                    HasSubstr("value too long for type character varying(20)")));
  Database(folder_.File("from.db"))
      .Execute(
          "DELETE FROM Uom1; INSERT INTO Batches1 (Batch_id, DateOfPurchase) VALUES (1, "
          "'2004-03-31 10:00:00')");
  EXPECT_EQ(ErrorOf([&] { (void)CopyBooks(folder_.File("from.db"), Server()); }),
            "13 while copying Batches1: the date 2004-03-31 10:00:00 in DateOfPurchase has a time "
            "of day, which would be lost");
  EXPECT_EQ(CountTables(), "0");
}

TEST_F(ServerBooks, ImportMakesThemOrAddsToThemAllOrNothing) {
  folder_.Write("Uom1.csv", "Uom_id,UomName\n1,Nos\nx,Kg\n");
  EXPECT_EQ(
      ErrorOf([&] { (void)ImportBooks(Server(), folder_.Path()); }),
      "13 " + folder_.File("Uom1.csv") + ":3:1: Uom_id: \"x\" is not a whole number of 32 bits");
  EXPECT_EQ(CountTables(), "0");
  folder_.Write("Uom1.csv", "Uom_id,UomName\n1,Nos\n2,Kg\n");
  const auto imported = ImportBooks(Server(), folder_.Path());
  ASSERT_EQ(imported.size(), 1U);
  EXPECT_EQ(imported[0].rows, 2);
  EXPECT_EQ(CountTables(), std::to_string(Tables().size()));
  folder_.Write("Uom1.csv", "Uom_id,UomName\n3,Litre\n2,Kg\n");
  EXPECT_THAT(ErrorOf([&] { (void)ImportBooks(Server(), folder_.Path()); }),
              AllOf(StartsWith("501 cannot write the books "),
                    HasSubstr("duplicate key value violates unique constraint"),
                    HasSubstr("(\"Uom_id\")=(2)")));
  folder_.Write("Uom1.csv", "Uom_id,UomName\n3,Litre\n");
  (void)ImportBooks(Server(), folder_.Path());
  EXPECT_EQ(Ask("SELECT string_agg(\"UomName\", ',' ORDER BY \"Uom_id\") FROM \"Uom1\""),
            "Nos,Kg,Litre");
}

std::string Findings(const std::string& connection) {
  std::string text;
  for (const Finding& finding : CheckBooks(connection)) {
    text += std::string(NameOf(finding.severity)) + ": " + finding.sentence + "\n";
    if (!finding.remedy.empty()) text += "  " + finding.remedy + "\n";
  }
  return text;
}

TEST_F(ServerBooks, CheckFindsNothingInSampleBooks) {
  SampleBooks(Server());
  EXPECT_EQ(Findings(Server()), "");
}

TEST_F(ServerBooks, CheckTellsWhatIsMissingOrOddAndWhatMendsIt) {
  SampleBooks(Server());
  Ask("DROP INDEX \"Items1_Name\"; DROP INDEX \"Batches1_Item\"; CREATE INDEX plain ON \"Items1\" "
      "(\"ItemName\"); CREATE INDEX \"Batches1_Item\" ON \"Batches1\" (\"Item_id\"); ALTER TABLE "
      "\"Desr1\" DROP COLUMN \"Narration\";"
      "ALTER TABLE \"Uom1\" ALTER COLUMN \"UomName\" TYPE json USING NULL;"
      "UPDATE \"GodownItem1\" SET \"Qty\" = -1 WHERE \"GodownItem_id\" = 5;"
      "UPDATE \"GodownItem1\" SET \"Item_id\" = 9999 WHERE \"GodownItem_id\" IN (7, 8);"
      "UPDATE \"ItemClass1\" SET \"RelatedTo\" = 3 - \"ItemClass_id\" WHERE \"ItemClass_id\" IN "
      "(1, 2)");
  const std::string found = Findings(Server());
  for (const char* line : {
           "error: The column Desr1.Narration is missing.\n  ALTER TABLE \"Desr1\" ADD COLUMN "
           "\"Narration\" varchar(255);\n",
           "error: The column Uom1.UomName is declared \"json\", where the reports need text "
           "(varchar(20)).\n",
           "error: 2 rows of GodownItem1 name in Item_id what Items1 does not have, the first with "
           "GodownItem_id 7.\n",
           "error: 1 movement has a negative quantity, where IsAdded should tell the direction, "
           "the "
           "first with GodownItem_id 5 (GodownItem1.Qty).\n",
           "error: The tree of ItemClass1.RelatedTo runs in a loop (1, 2, 1): a report that is "
           "asked for one of "
           "these groups ends with an error.\n",
           "hint: No index of Items1 begins with ItemName.\n  CREATE INDEX \"Items1_Name\" ON "
           "\"Items1\" ((CASE WHEN octet_length(\"ItemName\") = length(\"ItemName\") THEN "
           "lower(rtrim(\"ItemName\") COLLATE \"C\") ELSE lower(translate(rtrim(\"ItemName\"), ",
           "hint: No index of Batches1 begins with Item_id, Color_id.\n  DROP INDEX "
           "\"Batches1_Item\"; CREATE INDEX \"Batches1_Item\" ON \"Batches1\" (\"Item_id\" "
           "NULLS FIRST, \"Color_id\" NULLS FIRST);\n",
       }) {
    EXPECT_THAT(found, HasSubstr(line));
  }
}

TEST_F(ServerBooks, CheckTellsIndexesThatHaveNullLastAndWhatMendsThem) {
  SampleBooks(Server());
  Ask("DROP INDEX \"Batches1_Item\"; CREATE INDEX \"Batches1_Item\" ON \"Batches1\" "
      "(\"Item_id\" NULLS FIRST, \"Color_id\"); DROP INDEX \"Desr1_Ledger\";"
      "CREATE INDEX own ON \"Desr1\" (\"Ledger_id\" DESC NULLS LAST, \"Date\" DESC NULLS LAST)");
  EXPECT_EQ(Findings(Server()),
            "hint: The index Batches1_Item of Batches1 does not have Null first in each column, so "
            "that reports sort the rows that it could give in order.\n  DROP INDEX "
            "\"Batches1_Item\"; CREATE INDEX \"Batches1_Item\" ON \"Batches1\" (\"Item_id\" NULLS "
            "FIRST, \"Color_id\" NULLS FIRST);\n");
}

TEST_F(ServerBooks, AnIndexGivesRowsInTheOrderOfTheDialect) {
  SampleBooks(Server());
  const std::shared_ptr<Provider> books = OpenDatabase(Server(), std::chrono::seconds(60));
  for (const char* order :
       {"item_id, godown_id, batch_id, yearno, date, desrdetails_id, godownitem_id",
        "yearno desc, date desc, desrdetails_id desc, godownitem_id desc"}) {
    const std::string select =
        books->Translate(std::string("select qty, rate from godownitem1 order by ") + order);
    const std::string plan = Ask("SET enable_sort = off; EXPLAIN (FORMAT JSON) " + select);
    EXPECT_THAT(plan, AllOf(HasSubstr("Index Only Scan"), Not(HasSubstr("\"Sort\"")))) << order;
  }
}

TEST_F(ServerBooks, CheckRefusesWhatHoldsNoBooks) {
  EXPECT_THAT(ErrorOf([&] { (void)CheckBooks(Server()); }),
              AllOf(StartsWith("501 \"postgres\" on \""),
                    HasSubstr("holds no books: it has none of their tables")));
  EXPECT_THAT(ErrorOf([] { (void)CheckBooks("host=/nowhere dbname=books"); }),
              StartsWith("501 The books \"books\" on \"/nowhere\" cannot be opened: "));
}

TEST_F(ServerBooks, CopyingFromWhereNoBooksAreIsAnErrorAndMakesNothing) {
  const std::string file = folder_.File("copied.db");
  EXPECT_THAT(ErrorOf([&] { (void)CopyBooks(Server(), file); }),
              AllOf(StartsWith("501 there is nothing to copy: \"postgres\" on \""),
                    HasSubstr("\" holds no books, or none that the user may see")));
  EXPECT_FALSE(std::filesystem::exists(file));
  Database(folder_.File("empty.db")).Execute("CREATE TABLE notes (id INT)");
  EXPECT_THAT(ErrorOf([&] { (void)CopyBooks(folder_.File("empty.db"), Server()); }),
              StartsWith("501 there is nothing to copy: \"" + folder_.File("empty.db") + "\""));
  EXPECT_EQ(CountTables(), "0");
}

// Whoever may make functions in the schema does not get them called by whoever writes or reads
// books.
TEST_F(ServerBooks, IndexesAreOfTheServersOwnFunctionsWhateverTheSchemaHas) {
  Ask("CREATE FUNCTION rtrim(varchar) RETURNS text IMMUTABLE LANGUAGE sql AS "
      "'SELECT ''hijacked''::text'");
  SampleBooks(Server());
  EXPECT_EQ(
      Ask("SELECT count(*) FROM pg_depend WHERE classid = 'pg_class'::regclass AND refobjid = "
          "'rtrim(varchar)'::regprocedure"),
      "0");
  EXPECT_EQ(Findings(Server()), "");
}

// --- Servers that are not written to: each is told so before anything is tried.

std::vector<std::function<void()>> AllThatWrites(const std::string& server, const Folder& folder) {
  CreateBooks(folder.File("from.db"));
  folder.Write("Uom1.csv", "Uom_id,UomName\n1,Nos\n");
  return {[=] { CreateBooks(server); }, [=] { SampleBooks(server, 2000, 1); },
          [=, &folder] { (void)ImportBooks(server, folder.Path()); },
          [=, from = folder.File("from.db")] { (void)CopyBooks(from, server); }};
}

TEST(ServerBooksAway, AServerInRecoveryIsReadAndNotWritten) {
  const OwnServer server;
  const Folder folder;
  SampleBooks(server.ConnectionString(), 2000, 3);
  server.Run("CREATE DATABASE empty");
  server.Stop();
  server.Signal("standby.signal");
  server.Resume();
  for (const char* database : {" dbname=postgres", " dbname=empty"}) {
    for (const auto& write : AllThatWrites(server.ConnectionString() + database, folder)) {
      EXPECT_THAT(ErrorOf(write),
                  AllOf(StartsWith("501 cannot write the books \""),
                        EndsWith("\": the server is in recovery: it follows another server, which "
                                 "alone can be written to")));
    }
    std::filesystem::remove(folder.File("from.db"));
  }
  EXPECT_EQ(Findings(server.ConnectionString()), "");
  EXPECT_FALSE(CopyBooks(server.ConnectionString(), folder.File("back.db")).empty());
}

TEST(ServerBooksAway, ADatabaseThatCouldNotBeReadOrMayNotBeWritten) {
  const OwnServer server;
  server.Run(
      "CREATE DATABASE narrow ENCODING SQL_ASCII LC_COLLATE 'C' LC_CTYPE 'C' TEMPLATE "
      "template0");
  const Folder folder;
  for (const auto& write : AllThatWrites(server.ConnectionString() + " dbname=narrow", folder)) {
    EXPECT_THAT(ErrorOf(write), AllOf(StartsWith("501 cannot write the books \"narrow\" on \""),
                                      HasSubstr("\": the database's encoding is SQL_ASCII")));
  }
  EXPECT_THAT(
      ErrorOf([&] {
        CreateBooks(server.ConnectionString() + " options='-c default_transaction_read_only=on'");
      }),
      EndsWith("\": the user's transactions are read-only (default_transaction_read_only is on)"));
  EXPECT_THAT(ErrorOf([&] {
                CreateBooks(server.ConnectionString() + " options='-c search_path=nowhere'");
              }),
              EndsWith("\": the search_path names no schema to make tables in"));
}

TEST(ServerBooksAway, ATextThatTheDatabasesEncodingDoesNotHaveIsToldWithItsRow) {
  const OwnServer server;
  server.Run(
      "CREATE DATABASE narrow ENCODING LATIN1 LC_COLLATE 'C' LC_CTYPE 'C' TEMPLATE template0");
  const Folder folder;
  folder.Write("Uom1.csv", "Uom_id,UomName\n1,Nos\n2,\u0915\n");
  const std::string narrow = server.ConnectionString() + " dbname=narrow";
  EXPECT_THAT(ErrorOf([&] { (void)ImportBooks(narrow, folder.Path()); }),
              AllOf(StartsWith("501 cannot write the books \"narrow\" on \""),
                    HasSubstr("in encoding \"UTF8\" has no equivalent in encoding \"LATIN1\""),
                    EndsWith(" (COPY Uom1, line 2)")));
  EXPECT_EQ(ServerSession(narrow).Run("SELECT count(*) FROM pg_class WHERE relname = 'Uom1'"), "0");
  folder.Write("Uom1.csv", "Uom_id,UomName\n1,Caf\u00e9\n");
  EXPECT_EQ(ImportBooks(narrow, folder.Path()).size(), 1U);
  EXPECT_EQ(ServerSession(narrow + " client_encoding=UTF8").Run("SELECT \"UomName\" FROM \"Uom1\""),
            "Caf\u00e9");
}

TEST(ServerBooksAway, AServerThatIsKilledWhileItIsWrittenKeepsNothing) {
  const OwnServer server;
  server.Run("CHECKPOINT");
  const Folder folder;
  SampleBooks(folder.File("from.db"), 3000, 3);
  EXPECT_THAT(ErrorOf([&] {
                (void)CopyBooks(folder.File("from.db"), server.ConnectionString(),
                                [&](std::string_view table) {
                                  if (table == "GodownItem1") server.Kill();
                                });
              }),
              AllOf(StartsWith("501 while copying GodownItem1: cannot write the books "),
                    HasSubstr("server closed the connection unexpectedly")));
  server.Resume();
  EXPECT_EQ(server.Run("SELECT count(*) FROM pg_class WHERE relname IN ('Items1', 'Uom1')"), "0");
  EXPECT_FALSE(CopyBooks(folder.File("from.db"), server.ConnectionString()).empty());
}

TEST_F(ServerBooks, AServerThatIsNotThereIsError501) {
  EXPECT_THAT(
      ErrorOf([] { CreateBooks("host=/nowhere dbname=books password=secret"); }),
      AllOf(StartsWith("501 cannot write the books \"books\" on \"/nowhere\": connection to "
                       "server on socket "),
            testing::Not(HasSubstr("secret"))));
}

}  // namespace
}  // namespace pstolvane1::books
