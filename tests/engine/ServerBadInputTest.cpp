// What a host gives or finds wrong on a PostgreSQL server: each is one clear error on both paths,
// nothing waits for ever, and the connection can be used again.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <thread>

#include "tests/engine/BothPaths.h"
#include "tests/server/OwnServer.h"
#include "tests/server/Server.h"

namespace pstolvane1 {
namespace {

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class ServerBadInput : public OnEitherPath {};

INSTANTIATE_TEST_SUITE_P(OnBothPaths, ServerBadInput, testing::ValuesIn(kBothPaths),
                         [](const auto& path) { return NameOf(path.param); });

// --- Where the books are

TEST_P(ServerBadInput, AWrongHostPortDatabaseOrUserAndThenTheRightOne) {
  const Scratch scratch("CREATE TABLE t (id int); INSERT INTO t VALUES (5)");
  const auto connection = NewConnection();
  const auto error = [&](const std::string& text) {
    return OpenError(*connection, text, GetParam());
  };
  const std::string right = scratch.ConnectionString();
  EXPECT_THAT(error("host=no-such-host.invalid dbname=books"),
              AllOf(StartsWith("501 The books \"books\" on \"no-such-host.invalid\" cannot be "
                               "opened: could not translate host name"),
                    EndsWith(".")));
  EXPECT_THAT(error("host=/no/such/folder dbname=books"), HasSubstr("No such file or directory"));
  EXPECT_THAT(error(right + " port=1"), HasSubstr("No such file or directory"));
  EXPECT_THAT(error(right + " port=99999"), HasSubstr("invalid port number: \"99999\""));
  EXPECT_THAT(error(right + " dbname=nowhere"),
              EndsWith("FATAL: database \"nowhere\" does not exist."));
  EXPECT_THAT(error(right + " user=nobody_known"),
              EndsWith("FATAL: role \"nobody_known\" does not exist."));
  EXPECT_EQ(error(right), "") << "the same connection, with the right words";
  EXPECT_EQ(Cell(connection, "select id from t", GetParam()), "5");
}

TEST_P(ServerBadInput, AWrongPasswordIsToldAndNotRepeated) {
  const OwnServer server;
  server.Run("CREATE ROLE clerk LOGIN PASSWORD 'right one'; CREATE TABLE t (id int)");
  server.LetIn("local all clerk scram-sha-256");
  server.Run("SELECT pg_reload_conf()");
  const auto connection = NewConnection();
  const auto error = [&](const std::string& password) {
    std::string told;
    // The new rule holds a moment later.
    for (int i = 0; i < 100; ++i) {
      told =
          OpenError(*connection, server.ConnectionString() + " user=clerk" + password, GetParam());
      if (!told.empty()) break;
      connection->Close();
      std::this_thread::sleep_for(milliseconds(20));
    }
    return told;
  };
  EXPECT_THAT(error(" password=secret"),
              AllOf(StartsWith("501 The books \"postgres\" on \"/tmp/pst-own-"),
                    EndsWith("FATAL: password authentication failed for user \"clerk\"."),
                    Not(HasSubstr("secret"))));
  EXPECT_THAT(error(" passfile=/no/such/file"), EndsWith("fe_sendauth: no password supplied."));
  EXPECT_EQ(OpenError(*connection, server.ConnectionString() + " user=clerk password='right one'",
                      GetParam()),
            "");
  EXPECT_THAT(FetchError(connection, "select id from t", GetParam()),
              EndsWith("permission denied for table t"));
}

TEST_P(ServerBadInput, ADatabaseWithoutBooks) {
  const Scratch scratch("CREATE TABLE notes (id int)");
  const auto connection = NewBooksConnection();
  EXPECT_THAT(
      OpenError(*connection, scratch.ConnectionString(), GetParam()),
      AllOf(StartsWith("501 The database \"postgres\" on \""),
            EndsWith("\" holds no books: no schema of the search_path that the user may use "
                     "has one of the tables Items1, Desr1, GodownItem1, LedgerNames1 and "
                     "Voucher1.")));
  Scratch books("CREATE TABLE \"Items1\" (\"Item_id\" int); INSERT INTO \"Items1\" VALUES (3)");
  EXPECT_EQ(OpenError(*connection, books.ConnectionString(), GetParam()), "");
  EXPECT_EQ(Cell(connection, "select item_id from items1", GetParam()), "3");
}

TEST_P(ServerBadInput, ATooManyethSessionIsRefusedInTheServersWords) {
  const OwnServer server;
  server.Run(
      "CREATE ROLE clerk LOGIN CONNECTION LIMIT 1; CREATE TABLE t (id int);"
      "INSERT INTO t VALUES (1); GRANT SELECT ON t TO clerk");
  const auto connection = Opened(server.ConnectionString() + " user=clerk");
  // A state is held by one session and read by another.
  EXPECT_THAT(FetchError(connection, "select id from t", GetParam()),
              AllOf(StartsWith("-2147217900 "),
                    EndsWith("FATAL: too many connections for role \"clerk\".")));
  server.Run("ALTER ROLE clerk CONNECTION LIMIT 2");
  EXPECT_EQ(Cell(connection, "select id from t", GetParam()), "1");
}

// --- What the books lack

TEST_P(ServerBadInput, AMissingTableOrColumnIsNamedWithItsPlace) {
  const Scratch scratch("CREATE TABLE t (id int); INSERT INTO t VALUES (1)");
  const auto connection = Opened(scratch.ConnectionString());
  EXPECT_EQ(FetchError(connection, "select id from missing", GetParam()),
            "-2147217900 line 1, column 16: unknown table \"missing\"");
  EXPECT_EQ(FetchError(connection, "select id,\n missing from t", GetParam()),
            "-2147217900 line 2, column 2: unknown column \"missing\"");
  EXPECT_EQ(Cell(connection, "select id from t", GetParam()), "1");
}

TEST_P(ServerBadInput, AColumnOfATypeThatIsNotReadIsNamedWithIt) {
  const Scratch scratch(
      "CREATE TABLE t (id int, note json, \"Flags\" bit(8)); CREATE VIEW v AS SELECT * FROM t;"
      "INSERT INTO t VALUES (1, '{}', NULL)");
  const auto connection = Opened(scratch.ConnectionString());
  EXPECT_EQ(
      FetchError(connection, "select id, Note from t", GetParam()),
      "-2147217900 line 1, column 12: the column \"Note\" of \"t\" has the type \"json\", which "
      "is none that the reports can read");
  EXPECT_EQ(FetchError(connection, "select x.flags from v x", GetParam()),
            "-2147217900 line 1, column 10: the column \"flags\" of \"v\" has the type \"bit(8)\", "
            "which is none that the reports can read");
  EXPECT_EQ(Cell(connection, "select * from t", GetParam()), "1") << "what can be read is";
}

TEST_P(ServerBadInput, ATableOrColumnThatGoesWhileTheBooksAreOpen) {
  Scratch scratch(
      "CREATE TABLE t (id int, name text); INSERT INTO t VALUES (1, 'a');"
      "CREATE TABLE u (id int); INSERT INTO u VALUES (2)");
  const auto connection = Opened(scratch.ConnectionString());
  EXPECT_EQ(Cell(connection, "select name from t", GetParam()), "a");
  scratch.Run("ALTER TABLE t DROP name; DROP TABLE u");
  EXPECT_THAT(FetchError(connection, "select name from t", GetParam()),
              AllOf(StartsWith("-2147217900 "), HasSubstr("unknown column \"name\"")));
  EXPECT_THAT(FetchError(connection, "select id from u", GetParam()),
              AllOf(StartsWith("-2147217900 "), HasSubstr("unknown table \"u\"")));
  EXPECT_EQ(Cell(connection, "select id from t", GetParam()), "1");
  scratch.Run("ALTER TABLE t RENAME TO v");
  EXPECT_THAT(FetchError(connection, "select id from t", GetParam()),
              AllOf(StartsWith("-2147217900 "), HasSubstr("unknown table \"t\"")));
  scratch.Run("ALTER TABLE v RENAME TO t");
  EXPECT_EQ(Cell(connection, "select id from t", GetParam()), "1");
  scratch.Run("ALTER TABLE t ALTER id TYPE text USING 'now a text'");
  EXPECT_EQ(FetchError(connection, "select id from t", GetParam()),
            "-2147217900 the tables of the books were changed while the connection was open: "
            "connect again");
  EXPECT_EQ(Cell(connection, "select id from t", GetParam()), "now a text");
}

// --- Time

TEST_P(ServerBadInput, AStatementBeyondItsTimeLimit) {
  const Scratch scratch("CREATE TABLE t (id int); INSERT INTO t SELECT generate_series(1, 1000)");
  const auto connection = Opened(scratch.ConnectionString());
  connection->CommandTimeout(1);
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_THAT(FetchError(connection,
                         "select count(*) as n from t a, t b, t c, t d where a.id + b.id = c.id - "
                         "d.id",
                         GetParam()),
              EndsWith("while reading the rows: the time limit of 1 s was reached"));
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(10));
  EXPECT_EQ(Cell(connection, "select count(*) as n from t", GetParam()), "1000");
}

TEST_P(ServerBadInput, ATableThatSomebodyElseHasLocked) {
  const Scratch scratch("CREATE TABLE t (id int); INSERT INTO t VALUES (1)");
  const auto connection = Opened(scratch.ConnectionString());
  connection->CommandTimeout(1);
  ServerSession other(scratch.ConnectionString());
  other.Run("BEGIN; LOCK TABLE t IN ACCESS EXCLUSIVE MODE");
  EXPECT_THAT(FetchError(connection, "select id from t", GetParam()),
              EndsWith("while reading the rows: the time limit of 1 s was reached"));
  other.Run("COMMIT");
  EXPECT_EQ(Cell(connection, "select id from t", GetParam()), "1");
}

TEST_P(ServerBadInput, ATimeLimitOfTheServersOwn) {
  const Scratch scratch("CREATE TABLE t (id int); INSERT INTO t SELECT generate_series(1, 1000)");
  std::string limited = scratch.ConnectionString();
  limited.insert(limited.rfind('\''), " -c statement_timeout=200");
  const auto connection = Opened(limited);
  EXPECT_THAT(
      FetchError(connection,
                 "select count(*) as n from t a, t b, t c, t d where a.id + b.id = c.id - "
                 "d.id",
                 GetParam()),
      AllOf(StartsWith("-2147217900 "), EndsWith("canceling statement due to statement timeout")));
  EXPECT_EQ(Cell(connection, "select count(*) as n from t", GetParam()), "1000");
}

// --- A server that only follows another

TEST_P(ServerBadInput, AServerInRecoveryIsReadAsOneState) {
  const OwnServer server;
  server.Run("CREATE TABLE t (id int); INSERT INTO t SELECT generate_series(1, 5000)");
  server.Stop();
  server.Signal("standby.signal");
  server.Resume();
  ASSERT_EQ(server.Run("SELECT pg_is_in_recovery()"), "t");
  const auto connection = Opened(server.ConnectionString());
  const Connection::OneState state(connection);
  EXPECT_EQ(Cell(connection, "select count(*) as n from t", GetParam()), "5000");
  EXPECT_EQ(Cell(connection, "select max(id) as n from t", GetParam()), "5000");
  EXPECT_THAT(FetchError(connection, "select id from missing", GetParam()),
              HasSubstr("unknown table \"missing\""));
}

TEST_P(ServerBadInput, AServerInRecoveryThatTakesNobodyIn) {
  const OwnServer server;
  server.Run("CREATE TABLE t (id int); INSERT INTO t VALUES (1)");
  const auto before = Opened(server.ConnectionString());
  server.Stop();
  server.Signal("standby.signal");
  server.Configure("hot_standby = off");
  server.Resume();
  const auto connection = NewConnection();
  EXPECT_THAT(OpenError(*connection, server.ConnectionString(), GetParam()),
              AllOf(StartsWith("501 The books \"postgres\" on \"/tmp/pst-own-"),
                    HasSubstr("cannot be opened: "),
                    HasSubstr("FATAL: the database system is not accepting connections")));
  EXPECT_THAT(FetchError(before, "select id from t", GetParam()),
              AllOf(StartsWith("-2147217900 "),
                    HasSubstr("FATAL: the database system is not accepting connections")));
  server.Halt();
  server.Configure("hot_standby = on");
  server.Resume();
  EXPECT_EQ(OpenError(*connection, server.ConnectionString(), GetParam()), "");
  EXPECT_EQ(Cell(connection, "select id from t", GetParam()), "1");
  EXPECT_EQ(Cell(before, "select id from t", GetParam()), "1");
}

// --- Texts and the encoding

// A database of its own in an encoding that has fewer letters.
struct NarrowDatabase {
  NarrowDatabase(const OwnServer& server, const std::string& encoding) {
    server.Run("CREATE DATABASE narrow ENCODING " + encoding +
               " LC_COLLATE 'C' LC_CTYPE 'C' TEMPLATE template0");
    connection_string = server.ConnectionString() + " dbname=narrow";
  }
  std::string connection_string;
};

TEST_P(ServerBadInput, ATextThatIsNotUtf8) {
  const Scratch scratch("CREATE TABLE t (name text); INSERT INTO t VALUES ('a')");
  const auto connection = Opened(scratch.ConnectionString());
  for (const char* bytes :
       {"\xff", "\xc3", "\xe0\x80\x80", "\xed\xa0\x80", "\xf8\x88\x80\x80\x80"}) {
    EXPECT_THAT(
        FetchError(connection, std::string("select name from t where name = '") + bytes + "'",
                   GetParam()),
        AllOf(StartsWith("-2147217900 "), HasSubstr("the text is not UTF-8 here")));
  }
  using namespace std::string_literals;
  EXPECT_THAT(FetchError(connection, "select name from t where name = 'a\0b'"s, GetParam()),
              StartsWith("-2147217900 "));
  EXPECT_EQ(Cell(connection, "select name from t where name = 'A'", GetParam()), "a");
}

TEST_P(ServerBadInput, ATextThatTheDatabasesEncodingDoesNotHave) {
  const OwnServer server;
  const NarrowDatabase narrow(server, "LATIN1");
  ServerSession(narrow.connection_string + " client_encoding=UTF8")
      .Run("CREATE TABLE t (name text); INSERT INTO t VALUES ('Caf\u00e9')");
  const auto connection = Opened(narrow.connection_string);
  EXPECT_EQ(Cell(connection, "select name from t where name = 'CAF\u00c9'", GetParam()),
            "Caf\u00e9");
  EXPECT_THAT(FetchError(connection, "select name from t where name = '\u0915\u20b9'", GetParam()),
              AllOf(StartsWith("-2147217900 "),
                    HasSubstr("in encoding \"UTF8\" has no equivalent in encoding \"LATIN1\"")));
  EXPECT_EQ(Cell(connection, "select count(*) as n from t", GetParam()), "1");
}

TEST_P(ServerBadInput, ACellThatCannotBeWrittenAsUtf8) {
  const OwnServer server;
  const NarrowDatabase narrow(server, "WIN1252");
  // A byte that this encoding does not define.
  ServerSession(narrow.connection_string)
      .Run("CREATE TABLE t (id int, name text); INSERT INTO t VALUES (1, 'a'), (2, E'b\\x81')");
  const auto connection = Opened(narrow.connection_string);
  EXPECT_THAT(FetchError(connection, "select name from t order by id", GetParam()),
              AllOf(StartsWith("-2147217900 while reading the rows: "),
                    HasSubstr("0x81 in encoding \"WIN1252\" has no equivalent in encoding "
                              "\"UTF8\"")));
  EXPECT_EQ(Cell(connection, "select name from t where id = 1", GetParam()), "a");
}

TEST_P(ServerBadInput, ADatabaseThatDoesNotSayWhatItsTextsMean) {
  const OwnServer server;
  const NarrowDatabase narrow(server, "SQL_ASCII");
  const auto connection = NewConnection();
  EXPECT_THAT(OpenError(*connection, narrow.connection_string, GetParam()),
              AllOf(StartsWith("501 The books \"narrow\" on \""),
                    EndsWith("cannot be opened: the database's encoding is SQL_ASCII, which does "
                             "not say what its texts mean; make it with the encoding UTF8.")));
}

// --- Texts that want to do more

// The clerk's books, and what the clerk may not read beside them.
class ServerTexts : public ServerBadInput {
 protected:
  ServerTexts()
      : scratch_(
            "CREATE TABLE items (id int, name text); CREATE TABLE notes (id int);"
            "INSERT INTO items VALUES (1, 'it''s'), (2, 'a\\b'), (3, '; DELETE FROM items; "
            "--'), (4, '/* x */'), (5, '$1 $$'), (6, '\"q\"'), (7, '%s {}'), (8, 'a'')--')"),
        secrets_("CREATE TABLE secrets (word text); INSERT INTO secrets VALUES ('hidden')"),
        connection_(Opened(scratch_.ConnectionString())) {}

  std::string Condition(const std::string& condition) {
    return Cell(connection_, "select id from items where " + condition, GetParam());
  }

  Scratch scratch_;
  Scratch secrets_;
  const std::shared_ptr<Connection> connection_;
};

INSTANTIATE_TEST_SUITE_P(OnBothPaths, ServerTexts, testing::ValuesIn(kBothPaths),
                         [](const auto& path) { return NameOf(path.param); });

TEST_P(ServerTexts, WithQuotesBackslashesSemicolonsAndCommentsAreWhatTheySay) {
  EXPECT_EQ(Condition("name = 'IT''S'"), "1");
  EXPECT_EQ(Condition("name = 'A\\B'"), "2");
  EXPECT_EQ(Condition("name = '; delete from items; --'"), "3");
  EXPECT_EQ(Condition("name = '/* X */'"), "4");
  EXPECT_EQ(Condition("name = '$1 $$'"), "5");
  EXPECT_EQ(Condition("name = '\"Q\"'"), "6");
  EXPECT_EQ(Condition("name = '%S {}'"), "7");
  EXPECT_EQ(Condition("name = 'a'')--'"), "8");
  EXPECT_EQ(Condition("name like 'a\\%'"), "2");
  EXPECT_EQ(Condition("name like '%''s'"), "1");
  EXPECT_EQ(Condition("name = 'it''s' /* ' */ -- ; delete\n and id = 1"), "1");
}

TEST_P(ServerTexts, DoNotEndTheStatementAndDoNotWrite) {
  for (const char* condition : {
           "1 = 1; DELETE FROM items",
           "1 = 1) TO STDOUT; DELETE FROM items; --",
           "1 = 1)) AS report(c1)) TO STDOUT; COMMIT; DELETE FROM items --",
           "name = '\\'; DELETE FROM items; --'",
           "name = E'\\''; DELETE FROM items; --'",
           "name = $$x$$",
           "name = U&'\\0027'",
           "id IN (DELETE FROM items RETURNING id)",
           "id IN (SELECT 1 INTO notes)",
           "nextval('s') = 1",
           "set_config('transaction_read_only', 'off', false) = 'off'",
           "lo_create(1) = 1",
           "pg_terminate_backend(1) = 1",
           "dblink('host=x', 'DELETE FROM items') = ''",
           "query_to_xml('DELETE FROM items', true, true, '') = ''",
       }) {
    EXPECT_THAT(Condition(condition), StartsWith("-2147217900 ")) << condition;
  }
  for (const char* text :
       {"DELETE FROM items", "WITH x AS (SELECT 1) DELETE FROM items",
        "SET default_transaction_read_only = off", "COPY items TO '/tmp/x'", "DO $$BEGIN END$$",
        "BEGIN; SELECT id FROM items", "VACUUM items", "select id from items for update"}) {
    EXPECT_THAT(FetchError(connection_, text, GetParam()), StartsWith("-2147217900 ")) << text;
  }
  EXPECT_EQ(Cell(connection_, "select count(*) as n from items", GetParam()), "8");
  EXPECT_EQ(scratch_.Run("SELECT count(*) FROM items"), "8");
  EXPECT_EQ(scratch_.Run("SELECT count(*) FROM notes"), "0");
}

TEST_P(ServerTexts, DoNotReachOtherSchemasAndTheServersFiles) {
  const std::string schema = secrets_.Run("SELECT current_schema()");
  for (const std::string& condition : {
           "id IN (SELECT 1 FROM " + schema + ".secrets)",
           "id IN (SELECT 1 FROM \"" + schema + ".secrets\")",
           "id IN (SELECT 1 FROM [" + schema + "].[secrets])",
           "id IN (SELECT 1 FROM \"" + schema + "\".\"secrets\")",
           std::string("id IN (SELECT 1 FROM secrets)"),
           std::string("id IN (SELECT 1 FROM pg_catalog.pg_authid)"),
           std::string("id IN (SELECT 1 FROM pg_authid)"),
           std::string("id IN (SELECT 1 FROM information_schema.tables)"),
           std::string("name = (SELECT rolpassword FROM pg_authid)"),
           std::string("pg_read_file('/etc/passwd') = ''"),
           std::string("name = current_setting('data_directory')"),
           std::string("name = current_user"),
           std::string("table_to_xml('" + schema + ".secrets', true, true, '') = ''"),
           std::string("items.tableoid = 1"),
           std::string("items::text = ''"),
           std::string("name = CAST(items AS text)"),
       }) {
    EXPECT_THAT(Condition(condition), StartsWith("-2147217900 ")) << condition;
  }
  EXPECT_EQ(Condition("id = 1"), "1") << "it can be read on";
}

// Somebody who may make functions in a schema of the books does not get them called by whoever
// reads.
TEST_P(ServerTexts, MeanTheServersOwnFunctionsAndOperatorsWhateverASchemaHas) {
  Scratch scratch(
      "CREATE TABLE items (id int, name varchar(20), rate real, day date);"
      "INSERT INTO items VALUES (1, 'Bolt', 2.5, '2004-03-31'), (2, 'Nut', 7.5, '2005-03-31');"
      "CREATE FUNCTION rtrim(varchar) RETURNS text LANGUAGE sql AS 'SELECT ''hijacked''::text';"
      "CREATE FUNCTION lower(text) RETURNS text LANGUAGE sql AS 'SELECT ''hijacked''::text';"
      "CREATE FUNCTION round(real, int) RETURNS numeric LANGUAGE sql AS 'SELECT 666.0';"
      "CREATE FUNCTION sum_of(float8, real) RETURNS float8 LANGUAGE sql AS 'SELECT 666::float8';"
      "CREATE AGGREGATE sum(real) (SFUNC = sum_of, STYPE = float8, INITCOND = '0');"
      "CREATE FUNCTION always(int, numeric) RETURNS bool LANGUAGE sql AS 'SELECT true';"
      "CREATE FUNCTION always(int, int) RETURNS bool LANGUAGE sql AS 'SELECT true';"
      "CREATE OPERATOR = (LEFTARG = int, RIGHTARG = numeric, FUNCTION = always);"
      "CREATE OPERATOR = (LEFTARG = int, RIGHTARG = int, FUNCTION = always);"
      "CREATE DOMAIN numeric AS text; CREATE TABLE pg_class (relname text)");
  std::string last = scratch.ConnectionString();
  last.insert(last.rfind('\''), ",pg_catalog");
  for (const std::string& text : {scratch.ConnectionString(), last}) {
    const auto connection = Opened(text);
    const auto ids = [&](const std::string& condition) {
      return Cell(connection, "select count(*) as n from items where " + condition, GetParam());
    };
    EXPECT_EQ(ids("name = 'BOLT '"), "1");
    EXPECT_EQ(ids("name = 'hijacked'"), "0");
    EXPECT_EQ(ids("name like 'n%'"), "1");
    EXPECT_EQ(ids("id = 1.5"), "0");
    EXPECT_EQ(ids("id = 2"), "1");
    EXPECT_EQ(ids("round(rate, 0) = 666"), "0");
    EXPECT_EQ(ids("cast(rate as money) = 2.5"), "1");
    EXPECT_EQ(ids("day between '04/01/2003' and '03/31/2004'"), "1");
    EXPECT_EQ(Cell(connection, "select sum(rate) as n from items", GetParam()), "10");
    EXPECT_EQ(Cell(connection, "select count(*) as n from pg_class", GetParam()), "0")
        << "the books' own";
  }
}

TEST_P(ServerTexts, FindATableInTheFirstSchemaThatHasIt) {
  const Scratch first("CREATE TABLE \"Items\" (id int); INSERT INTO \"Items\" VALUES (1)");
  const Scratch second(
      "CREATE TABLE \"ITEMS\" (id int, other int); INSERT INTO \"ITEMS\" VALUES (2);"
      "CREATE TABLE more (id int); INSERT INTO more VALUES (3)");
  std::string both = first.ConnectionString();
  const std::string& behind = second.ConnectionString();
  const std::size_t name = behind.rfind('=') + 1;
  both.insert(both.rfind('\''), "," + behind.substr(name, behind.rfind('\'') - name));
  const auto connection = Opened(both);
  EXPECT_EQ(Cell(connection, "select id from items", GetParam()), "1");
  EXPECT_EQ(Cell(connection, "select id from more", GetParam()), "3");
  EXPECT_THAT(FetchError(connection, "select other from items", GetParam()),
              HasSubstr("unknown column \"other\""));
}

TEST_P(ServerTexts, ReadNoMoreThanTheConnectionsUserMay) {
  const OwnServer server;
  server.Run(
      "CREATE ROLE clerk LOGIN; CREATE TABLE items (id int PRIMARY KEY, cost int); INSERT INTO "
      "items "
      "VALUES (1, 7); CREATE TABLE wages (pay int); GRANT SELECT (id) ON items TO clerk;"
      "CREATE VIEW cheap AS SELECT id FROM items WHERE cost < 10; GRANT SELECT ON cheap TO "
      "clerk");
  const auto connection = Opened(server.ConnectionString() + " user=clerk");
  EXPECT_EQ(Cell(connection, "select id from items", GetParam()), "1");
  EXPECT_EQ(Cell(connection, "select id from cheap", GetParam()), "1");
  EXPECT_THAT(FetchError(connection, "select cost from items", GetParam()),
              AllOf(StartsWith("-2147217900 "), EndsWith("permission denied for table items")));
  EXPECT_THAT(FetchError(connection, "select pay from wages", GetParam()),
              AllOf(StartsWith("-2147217900 "), EndsWith("permission denied for table wages")));
  EXPECT_EQ(Cell(connection, "select id from items", GetParam()), "1");
}

}  // namespace
}  // namespace pstolvane1
