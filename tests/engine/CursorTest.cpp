#include <atomic>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <thread>

#include "session/engine/sqlite/Cursor.h"
#include "tests/engine/Pause.h"
#include "tests/engine/TestBooks.h"

namespace pstolvane1::sqlite {
namespace {

using testing::ElementsAre;
using testing::StartsWith;

constexpr const char* kOneTable = "CREATE TABLE t (id INTEGER); INSERT INTO t VALUES (1)";
// A table that, joined with itself three times, keeps the engine busy for hours.
constexpr const char* kThousandRows =
    "CREATE TABLE t (id INTEGER);"
    "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 1000)"
    "INSERT INTO t SELECT i FROM n;";
constexpr const char* kWriteAhead = "PRAGMA journal_mode = WAL;";
constexpr const char* kEndless =
    "whole N: SELECT count(*) FROM t AS a, t AS b, t AS c, t AS d WHERE a.id + b.id = c.id - d.id";
constexpr const char* kManyRows = "whole N: SELECT a.id FROM t AS a, t AS b, t AS c";

class Cells : public testing::Test {
 protected:
  // The cell as text, or the error, of one value read as a column of the type.
  std::string Read(const std::string& type, const std::string& value) {
    std::string line;
    const std::string error =
        ErrorOf([&] { line = Lines(*provider_, type + " Amount: SELECT " + value).at(0); });
    return error == "no error" ? line : error;
  }

 private:
  const TestBooks books_{kOneTable};
  const std::shared_ptr<SqliteProvider> provider_ = OpenPlain(books_.Path());
};

constexpr const char* kReading = "while reading column Amount: ";

TEST_F(Cells, EveryTypeTakesNull) {
  for (const char* type :
       {"null", "text", "flag", "whole", "big", "money", "decimal", "single", "real", "date"}) {
    EXPECT_EQ(Read(type, "NULL"), "(null)") << type;
  }
}

TEST_F(Cells, AreReadAsTheirColumnsTypeAsks) {
  struct Case {
    const char* type;
    const char* stored;
    const char* read;
  };
  for (const Case& each : {
           Case{"whole", "0", "0"},
           Case{"whole", "-2147483648", "-2147483648"},
           Case{"whole", "2147483647", "2147483647"},
           Case{"whole", "5.0", "5"},
           Case{"big", "9223372036854775807", "9223372036854775807"},
           Case{"big", "-9223372036854775807 - 1", "-9223372036854775808"},
           Case{"big", "-9223372036854775808.0", "-9223372036854775808"},
           Case{"flag", "0", "0"},
           Case{"flag", "1", "-1"},
           Case{"flag", "-1", "-1"},
           Case{"flag", "7", "-1"},
           Case{"flag", "4294967296", "-1"},
           Case{"flag", "0.0", "0"},
           Case{"single", "0.1", "0.1"},
           Case{"single", "3", "3"},
           Case{"single", "1e-60", "0"},
           Case{"real", "0.1", "0.1"},
           Case{"real", "3", "3"},
           Case{"real", "1e300", "1e+300"},
           Case{"decimal", "12.5", "12.5"},
           Case{"money", "12", "12.0000"},
           Case{"money", "12.5", "12.5000"},
           Case{"money", "0.03125", "0.0312"},
           Case{"money", "0.09375", "0.0938"},
           Case{"money", "-0.09375", "-0.0938"},
           Case{"money", "0.1 + 0.2", "0.3000"},
           Case{"money", "'1234.5678'", "1234.5678"},
           Case{"money", "'-5'", "-5.0000"},
           Case{"money", "922337203685477", "922337203685477.0000"},
           Case{"date", "'2004-03-31'", "2004-03-31"},
           Case{"date", "'2004-02-29T14:05:09'", "2004-02-29 14:05:09"},
           Case{"date", "'1899-12-30'", "1899-12-30"},
           Case{"text", "'Bolt'", "Bolt"},
           Case{"text", "''", ""},
           Case{"text", "12", "12"},
           Case{"text", "1.5", "1.5"},
           Case{"text", "'\u0915\u20b9\U0001f600'", "\u0915\u20b9\U0001f600"},
           Case{"text", "CAST(x'4180FF42' AS TEXT)",
                "A\ufffd\ufffd"
                "B"},
           Case{"text", "CAST(x'C3' AS TEXT)", "\ufffd"},
           Case{"text", "CAST(x'EDA080' AS TEXT)", "\ufffd\ufffd\ufffd"},
           Case{"text", "'abcdefghijklmnop' || CAST(x'E282' AS TEXT)",
                "abcdefghijklmnop\ufffd\ufffd"},
       }) {
    EXPECT_EQ(Read(each.type, each.stored), each.read) << each.type << " " << each.stored;
  }
}

TEST_F(Cells, OfAnotherKindAreErrorsThatNameTheColumn) {
  struct Case {
    const char* type;
    const char* stored;
    const char* why;
  };
  for (const Case& each : {
           Case{"whole", "'abc'", "\"abc\" is not a 32-bit whole number"},
           Case{"whole", "''", "\"\" is not a 32-bit whole number"},
           Case{"whole", "1.5", "1.5 is not a 32-bit whole number"},
           Case{"whole", "x'00'", "binary data is not a 32-bit whole number"},
           Case{"big", "0.5", "0.5 is not a 64-bit whole number"},
           Case{"flag", "'True'", "\"True\" is not a flag"},
           Case{"single", "'1'", "\"1\" is not a number"},
           Case{"real", "'abc'", "\"abc\" is not a number"},
           Case{"decimal", "x'31'", "binary data is not a number"},
           Case{"money", "x'31'", "binary data is not an amount of money"},
           Case{"date", "'31/03/2004'", "\"31/03/2004\" is not a date"},
           Case{"date", "'2005-02-29'", "\"2005-02-29\" is not a date"},
           Case{"date", "''", "\"\" is not a date"},
           Case{"date", "38077", "38077 is not a date"},
           Case{"text", "x'41'", "binary data is not a text"},
           Case{"date", "'a text that is longer than what a message can show'",
                "\"a text that is longer than what a messag\" is not a date"},
       }) {
    EXPECT_EQ(Read(each.type, each.stored), std::string("13 ") + kReading + each.why)
        << each.type << " " << each.stored;
  }
  EXPECT_THAT(Read("money", "'abc'"), StartsWith(std::string("13 ") + kReading));
}

TEST_F(Cells, BeyondTheirRangeAreErrorsThatNameTheColumn) {
  struct Case {
    const char* type;
    const char* stored;
    const char* why;
  };
  for (const Case& each : {
           Case{"whole", "2147483648", "2147483648 is out of range for a 32-bit whole number"},
           Case{"whole", "-2147483649", "-2147483649 is out of range for a 32-bit whole number"},
           Case{"whole", "3e9", "3000000000.0 is out of range for a 32-bit whole number"},
           Case{"big", "9223372036854775808.0",
                "9.22337203685478e+18 is out of range for a 64-bit whole number"},
           Case{"single", "1e39", "1.0e+39 is out of range for a single"},
           Case{"money", "922337203685478", "922337203685478 is out of range for money"},
       }) {
    EXPECT_EQ(Read(each.type, each.stored), std::string("6 ") + kReading + each.why)
        << each.type << " " << each.stored;
  }
  EXPECT_THAT(Read("money", "1e15"), StartsWith(std::string("6 ") + kReading));
  EXPECT_THAT(Read("money", "9e999"), StartsWith(std::string("6 ") + kReading));
}

TEST(CursorColumns, HaveTheRowsetsTypes) {
  const std::vector<ColumnInfo> columns = ColumnsOf({{.name = "N", .type = sql::Type::kNull},
                                                     {.name = "T", .type = sql::Type::kText},
                                                     {"S", sql::Type::kText, 40},
                                                     {.name = "F", .type = sql::Type::kFlag},
                                                     {.name = "W", .type = sql::Type::kWhole},
                                                     {.name = "B", .type = sql::Type::kBigWhole},
                                                     {.name = "M", .type = sql::Type::kMoney},
                                                     {.name = "D", .type = sql::Type::kDecimal},
                                                     {.name = "G", .type = sql::Type::kSingle},
                                                     {.name = "R", .type = sql::Type::kReal},
                                                     {.name = "A", .type = sql::Type::kDate}});
  std::string told;
  for (const ColumnInfo& column : columns) {
    told += column.name + " " + std::to_string(column.type) + " " +
            std::to_string(column.defined_size) + " " + std::to_string(column.attributes) + ", ";
  }
  EXPECT_EQ(told,
            "N 3 0 32, T 8 0 32, S 200 40 32, F 11 0 32, W 3 0 32, B 20 0 32, M 6 0 32, D 5 0 32, "
            "G 4 0 32, R 5 0 32, A 7 0 32, ");
}

TEST(Cursors, FillChunksToTheirEnd) {
  const TestBooks books(kThousandRows);
  const auto provider = OpenPlain(books.Path());
  const auto cursor = provider->TakeSnapshot(kNoLimit)->Run("whole N: SELECT id FROM t", kNoLimit);
  Chunk one(cursor->Columns(), 1);
  EXPECT_EQ(cursor->Read(one), 1U);
  EXPECT_EQ(cursor->Read(one), 0U) << "there is no room";
  Chunk chunk(cursor->Columns(), 600);
  chunk.AddRow();
  EXPECT_EQ(cursor->Read(chunk), 599U);
  EXPECT_EQ(chunk.Get<std::int32_t>(0, 1), 2);
  Chunk rest(cursor->Columns(), 600);
  EXPECT_EQ(cursor->Read(rest), 400U);
  EXPECT_EQ(cursor->Read(rest), 0U);
  EXPECT_EQ(rest.Get<std::int32_t>(0, 399), 1000);
}

TEST(Cursors, JoinTextsThatDifferInCaseAndTrailingBlanks) {
  const TestBooks books(
      "CREATE TABLE a (id INTEGER, t TEXT); INSERT INTO a VALUES (1, 'abc'), (2, 'Abc  ');"
      "CREATE TABLE b (t TEXT); INSERT INTO b VALUES ('ABC')");
  EXPECT_THAT(Lines(*OpenPlain(books.Path()),
                    "whole N: SELECT a.id FROM a JOIN b ON b.t COLLATE PST_TEXT = a.t ORDER BY 1"),
              ElementsAre("1", "2"));
}

TEST(Cursors, AnErrorAmongTheRowsLeavesTheRowsBeforeIt) {
  const TestBooks books("CREATE TABLE t (id INTEGER); INSERT INTO t VALUES (1), (2), (3)");
  const auto provider = OpenPlain(books.Path());
  const auto cursor = provider->TakeSnapshot(kNoLimit)->Run(
      "whole N, date D: SELECT id, "
      "CASE id WHEN 1 THEN '2004-03-31' WHEN 2 THEN "
      "'31.03.2004' END FROM t",
      kNoLimit);
  Chunk chunk(cursor->Columns());
  EXPECT_EQ(ErrorOf([&] { cursor->Read(chunk); }),
            "13 while reading column D: \"31.03.2004\" is not a date");
  EXPECT_EQ(chunk.RowCount(), 1U);
  EXPECT_TRUE(chunk.IsNull(0, 1));
  EXPECT_EQ(cursor->Read(chunk), 0U) << "it is over";
}

TEST(Cursors, TheEnginesWordsAreToldWithWhatWasDone) {
  const TestBooks books(kThousandRows);
  const auto provider = OpenPlain(books.Path());
  EXPECT_EQ(ErrorOf([&] { Lines(*provider, "whole N: SELECT missing FROM t"); }),
            "-2147217900 while preparing a statement: no such column: missing");
  EXPECT_EQ(ErrorOf([&] { Lines(*provider, "whole N: SELECT id FROM u"); }),
            "-2147217900 while preparing a statement: no such table: u");
  EXPECT_EQ(ErrorOf([&] { Lines(*provider, "whole N: SELECT id, id FROM t"); }),
            "-2147217900 the statement gives 2 columns instead of 1");
  EXPECT_EQ(ErrorOf([&] { Lines(*provider, "big N: SELECT sum(9223372036854775807) FROM t"); }),
            "6 while reading the rows: a whole number leaves its range");
}

TEST(Cursors, EndAtTheirTimeLimit) {
  const TestBooks books(kThousandRows);
  const auto provider = OpenPlain(books.Path());
  const auto snapshot = provider->TakeSnapshot(kNoLimit);
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_EQ(ErrorOf([&] { Lines(*snapshot->Run(kEndless, milliseconds(150))); }),
            "-2147217900 while reading the rows: the time limit of 0.15 s was reached");
  const auto took = std::chrono::steady_clock::now() - begin;
  EXPECT_GE(took, milliseconds(150));
  EXPECT_LT(took, milliseconds(60000));
  EXPECT_THAT(Lines(*snapshot, "whole N: SELECT count(*) FROM t"), ElementsAre("1000"));
}

TEST(Cursors, TimeInWhichNobodyReadsDoesNotCount) {
  const TestBooks books(kThousandRows);
  const auto provider = OpenPlain(books.Path());
  EXPECT_EQ(RowsBehindAPause(*provider, "whole N: SELECT id FROM t"), 999U);
}

TEST(Cursors, AreCancelledAloneByThemselvesAndTogetherByTheirSnapshot) {
  const TestBooks books(kThousandRows);
  const auto provider = OpenPlain(books.Path());
  const auto snapshot = provider->TakeSnapshot(kNoLimit);
  const auto first = snapshot->Run(kManyRows, kNoLimit);
  const auto second = snapshot->Run(kManyRows, kNoLimit);
  constexpr const char* kCancelled = "-2147217900 while reading the rows: it was cancelled";
  Chunk chunk(first->Columns());
  EXPECT_EQ(first->Read(chunk), Chunk::kRows);
  first->Cancel();
  Chunk other(first->Columns());
  EXPECT_EQ(ErrorOf([&] { first->Read(other); }), kCancelled);
  EXPECT_EQ(second->Read(other), Chunk::kRows);
  snapshot->Cancel();
  Chunk third(first->Columns());
  EXPECT_EQ(ErrorOf([&] { second->Read(third); }), kCancelled);
  EXPECT_THAT(Lines(*snapshot, "whole N: SELECT count(*) FROM t"), ElementsAre("1000"))
      << "what starts later is not touched";
}

TEST(Cursors, CancelFromAnotherThreadAtAnyMoment) {
  const TestBooks books(kThousandRows);
  const auto provider = OpenPlain(books.Path());
  for (int i = 0; i < 30; ++i) {
    const auto snapshot = provider->TakeSnapshot(kNoLimit);
    const auto neighbour = provider->TakeSnapshot(kNoLimit);
    const std::shared_ptr<Cursor> cursor =
        snapshot->Run(i % 2 == 0 ? kEndless : kManyRows, kNoLimit);
    std::thread canceller([&, i] {
      std::this_thread::sleep_for(std::chrono::microseconds(i * i * 50));
      if (i % 3 == 0) cursor->Cancel();
      if (i % 3 == 1) snapshot->Cancel();
      if (i % 3 == 2) provider->Cancel();
    });
    const std::string error = ErrorOf([&] {
      while (true) {
        Chunk chunk(cursor->Columns());
        if (cursor->Read(chunk) == 0) break;
      }
    });
    canceller.join();
    EXPECT_EQ(error, "-2147217900 while reading the rows: it was cancelled");
    if (i % 3 != 2) {
      EXPECT_THAT(Lines(*neighbour, "whole N: SELECT count(*) FROM t"), ElementsAre("1000"));
    }
  }
}

// A state whose cursors share one connection: another would see what was written since.
std::shared_ptr<Snapshot> StateOfOneConnection(Provider& provider, const TestBooks& books) {
  auto snapshot = provider.TakeSnapshot(kNoLimit);
  Writer(books.Path()).Run("INSERT INTO t VALUES (0)");
  return snapshot;
}

TEST(Cursors, OfOneConnectionTakeTurns) {
  const TestBooks books(kWriteAhead + std::string(kThousandRows));
  const auto provider = OpenPlain(books.Path());
  const auto snapshot = StateOfOneConnection(*provider, books);
  constexpr int kThreads = 4;
  constexpr int kChunks = 40;
  std::atomic<int> running{0};
  std::atomic<bool> together{true};
  std::vector<std::thread> threads;
  std::array<std::atomic<int>, kThreads> done{};
  for (std::size_t thread = 0; thread < kThreads; ++thread) {
    threads.emplace_back([&, thread] {
      const auto cursor = snapshot->Run(kManyRows, kNoLimit);
      ++running;
      while (running < kThreads) std::this_thread::yield();
      for (int i = 0; i < kChunks; ++i) {
        Chunk chunk(cursor->Columns());
        EXPECT_EQ(cursor->Read(chunk), Chunk::kRows);
        ++done[thread];
      }
      // When the first is through, none of the others has been left behind.
      for (const auto& each : done) {
        if (each < kChunks / 4) together = false;
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_TRUE(together);
}

TEST(Cursors, GoAwayWhileANeighbourIsBusyWithoutWaitingForIt) {
  const TestBooks books(kWriteAhead + std::string(kThousandRows));
  const auto provider = OpenPlain(books.Path());
  const auto snapshot = StateOfOneConnection(*provider, books);
  const auto busy = snapshot->Run(kEndless, milliseconds(20000));
  auto going = snapshot->Run(kManyRows, kNoLimit);
  std::thread reader([&] {
    EXPECT_EQ(ErrorOf([&] { Lines(*busy); }),
              "-2147217900 while reading the rows: it was cancelled");
  });
  std::this_thread::sleep_for(milliseconds(50));
  const auto begin = std::chrono::steady_clock::now();
  going.reset();
  EXPECT_LT(std::chrono::steady_clock::now() - begin, milliseconds(5000));
  busy->Cancel();
  reader.join();
}

TEST(Cursors, OutliveEverythingElse) {
  const TestBooks books(kThousandRows);
  auto provider = OpenPlain(books.Path());
  auto snapshot = provider->TakeSnapshot(kNoLimit);
  auto cursor = snapshot->Run(kManyRows, kNoLimit);
  Chunk chunk(cursor->Columns());
  cursor->Read(chunk);
  provider.reset();
  snapshot.reset();
  std::thread elsewhere([cursor = std::move(cursor)]() mutable {
    Chunk more(cursor->Columns());
    EXPECT_EQ(cursor->Read(more), Chunk::kRows);
    cursor.reset();
  });
  elsewhere.join();
}

}  // namespace
}  // namespace pstolvane1::sqlite
