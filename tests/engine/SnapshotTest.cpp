#include <atomic>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <thread>

#include "session/data/BooksState.h"
#include "session/data/FetchStop.h"
#include "tests/engine/TestBooks.h"
#include "tests/engine/TwinTables.h"

namespace pstolvane1::sqlite {
namespace {

using testing::ElementsAre;
using testing::StartsWith;

TEST(OneState, AllQueriesOfASnapshotSeeItWhileAnotherProgramWritesAhead) {
  const TestBooks books(TwinTables("WAL", 20000));
  WriterProcess writer(books.Path());
  ASSERT_TRUE(writer.Step());
  const auto provider = OpenPlain(books.Path());
  const auto snapshot = provider->TakeSnapshot(kNoLimit);
  ASSERT_TRUE(writer.Step());
  const auto cursor = snapshot->Run(kReadA, kNoLimit);
  Chunk first(cursor->Columns());
  ASSERT_EQ(cursor->Read(first), Chunk::kRows);
  EXPECT_EQ(first.Get<std::int32_t>(0, 0), 1);
  ASSERT_TRUE(writer.Step());  // in the middle of a fetch
  EXPECT_EQ(OneValue(Lines(*cursor)), "1");
  EXPECT_EQ(OneValue(Lines(*snapshot, kReadB)), "1");
  EXPECT_EQ(OneValue(Lines(*provider, kReadB)), "3");  // a state taken now
}

TEST(OneState, AWriterOfARollbackJournalWaitsUntilTheReportHasRead) {
  const TestBooks books(TwinTables("DELETE", 20000));
  WriterProcess writer(books.Path());
  ASSERT_TRUE(writer.Step());
  const auto provider = OpenPlain(books.Path());
  {
    auto snapshot = provider->TakeSnapshot(kNoLimit);
    const auto cursor = snapshot->Run(kReadA, kNoLimit);
    Chunk first(cursor->Columns());
    cursor->Read(first);
    EXPECT_FALSE(writer.Step());
    EXPECT_EQ(OneValue(Lines(*snapshot, kReadB)), "1");
    snapshot.reset();
    EXPECT_FALSE(writer.Step()) << "the cursor still holds the state";
    EXPECT_EQ(OneValue(Lines(*cursor)), "1");
  }
  EXPECT_TRUE(writer.Step()) << "the state was let go with its last cursor";
  EXPECT_EQ(OneValue(Lines(*provider, kReadA)), "2");
}

class WhileAThreadWrites : public testing::TestWithParam<const char*> {};

TEST_P(WhileAThreadWrites, EveryStateIsWhole) {
  const TestBooks books(TwinTables(GetParam(), 500));
  const auto provider = OpenPlain(books.Path());
  std::atomic<bool> stop{false};
  std::thread writer([&] {
    Writer other(books.Path());
    while (!stop) {
      other.Run(kStep);
      std::this_thread::sleep_for(milliseconds(1));
    }
  });
  int last = -1;
  int changes = 0;
  for (int i = 0; i < 60; ++i) {
    const auto snapshot = provider->TakeSnapshot(milliseconds(20000));
    const std::string a = OneValue(Lines(*snapshot, kReadA));
    std::this_thread::sleep_for(milliseconds(1));
    EXPECT_EQ(OneValue(Lines(*snapshot, kReadB)), a);
    ASSERT_NE(a, "mixed");
    const int value = std::stoi(a);
    EXPECT_GE(value, last);
    changes += value != last ? 1 : 0;
    last = value;
  }
  stop = true;
  writer.join();
  EXPECT_GT(changes, 5);
}

INSTANTIATE_TEST_SUITE_P(JournalModes, WhileAThreadWrites,
                         testing::Values("DELETE", "TRUNCATE", "WAL"));

TEST(Snapshots, WaitForAWriterWithinTheTimeLimit) {
  const TestBooks books(TwinTables("DELETE", 10));
  const auto provider = OpenPlain(books.Path());
  Writer writer(books.Path());
  writer.Run("BEGIN EXCLUSIVE; UPDATE a SET v = 7; UPDATE b SET v = 7");
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(provider->TakeSnapshot(milliseconds(120))); }),
            "-2147217900 while waiting for the books: the books are locked by another program and "
            "were not let go within the time limit of 0.12 s");
  std::thread later([&] {
    std::this_thread::sleep_for(milliseconds(80));
    writer.Run("COMMIT");
  });
  EXPECT_EQ(OneValue(Lines(*provider->TakeSnapshot(milliseconds(20000)), kReadA)), "7");
  later.join();
}

TEST(Snapshots, CancelEndsTheWaitForALock) {
  const TestBooks books(TwinTables("DELETE", 10));
  const auto provider = OpenPlain(books.Path());
  Writer writer(books.Path());
  writer.Run("BEGIN EXCLUSIVE");
  std::thread other([&] {
    std::this_thread::sleep_for(milliseconds(60));
    provider->Cancel();
  });
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(provider->TakeSnapshot(milliseconds(60000))); }),
            "-2147217900 while waiting for the books: it was cancelled");
  EXPECT_LT(std::chrono::steady_clock::now() - begin, milliseconds(20000));
  other.join();
  writer.Run("COMMIT");
  EXPECT_EQ(OneValue(Lines(*provider, kReadA)), "0") << "what starts later is not touched";
}

TEST(Snapshots, AFetchThatWasStoppedBeforeTheWaitForALockDoesNotWait) {
  const TestBooks books(TwinTables("DELETE", 10));
  const auto provider = OpenPlain(books.Path());
  Writer writer(books.Path());
  writer.Run("BEGIN EXCLUSIVE");
  FetchStop stopped;
  stopped.Stop();
  BooksState state(provider, kNoLimit);
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(state.Take(stopped)); }),
            "-2147217900 while waiting for the books: it was cancelled");
  EXPECT_FALSE(state.Failed());
  writer.Run("COMMIT");
  EXPECT_EQ(OneValue(Lines(*state.Take(FetchStop()), kReadA)), "0") << "the next fetch takes it";
}

TEST(Snapshots, OutliveTheirProvider) {
  const TestBooks books(TwinTables("DELETE", 10));
  auto provider = OpenPlain(books.Path());
  const auto snapshot = provider->TakeSnapshot(kNoLimit);
  provider.reset();
  EXPECT_EQ(OneValue(Lines(*snapshot, kReadA)), "0");
}

TEST(Snapshots, SeveralStatesAreHeldAtATime) {
  const TestBooks books(TwinTables("WAL", 10));
  const auto provider = OpenPlain(books.Path());
  Writer writer(books.Path());
  std::vector<std::shared_ptr<Snapshot>> snapshots;
  for (int i = 0; i < 8; ++i) {
    snapshots.push_back(provider->TakeSnapshot(kNoLimit));
    writer.Run(kStep);
  }
  for (int i = 0; i < 8; ++i) {
    EXPECT_EQ(OneValue(Lines(*snapshots[static_cast<std::size_t>(i)], kReadB)), std::to_string(i));
  }
}

TEST(Snapshots, SeeTablesThatWereMadeMeanwhile) {
  const TestBooks books(TwinTables("DELETE", 10));
  std::vector<std::string> known;
  const auto provider = std::make_shared<SqliteProvider>(
      books.Path(), kNoLimit, [&](std::string_view text, const sql::Catalog& catalog) {
        known.clear();
        for (const auto& table : catalog.Tables()) known.push_back(table.name);
        return PlainText(text, catalog);
      });
  EXPECT_EQ(OneValue(Lines(*provider, kReadA)), "0");
  EXPECT_THAT(known, ElementsAre("a", "b"));
  Writer(books.Path()).Run("CREATE TABLE c (id INTEGER); INSERT INTO c VALUES (5)");
  EXPECT_EQ(provider->Translate("whole I: SELECT id FROM c"), "SELECT id FROM c");
  EXPECT_THAT(known, ElementsAre("a", "b", "c"));
  EXPECT_THAT(Lines(*provider, "whole I: SELECT id FROM c"), ElementsAre("5"));
}

TEST(Snapshots, ReadTheFileThatReplacedTheOld) {
  const TestBooks books(TwinTables("DELETE", 10));
  const auto provider = OpenPlain(books.Path());
  EXPECT_EQ(OneValue(Lines(*provider, kReadA)), "0");
  const std::string other = books.Folder().File("other.db");
  Writer(other).Run(TwinTables("DELETE", 3) + "UPDATE a SET v = 9");
  std::filesystem::rename(other, books.Path());
  EXPECT_EQ(OneValue(Lines(*provider, kReadA)), "9");
  std::filesystem::remove(books.Path());
  EXPECT_EQ(
      ErrorOf([&] { static_cast<void>(provider->TakeSnapshot(kNoLimit)); }),
      "-2147217900 The books \"" + books.Path() + "\" cannot be opened: there is no such file.");
}

TEST(Snapshots, DescribeNeitherRunsNorWaits) {
  const TestBooks books(TwinTables("DELETE", 10));
  const auto provider = OpenPlain(books.Path());
  Writer writer(books.Path());
  writer.Run("BEGIN EXCLUSIVE");
  const auto begin = std::chrono::steady_clock::now();
  const std::vector<ColumnInfo> columns =
      provider->Describe("whole Id, money Amount: SELECT id, v FROM a");
  EXPECT_LT(std::chrono::steady_clock::now() - begin, milliseconds(2000));
  ASSERT_EQ(columns.size(), 2U);
  EXPECT_EQ(columns[0].name, "Id");
  EXPECT_EQ(columns[1].type, adCurrency);
}

}  // namespace
}  // namespace pstolvane1::sqlite
