// Statements of one state of the books that are read at the same time, each with a connection of
// its own, and what keeps the two at one state.
#include <atomic>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <thread>

#include "session/engine/sqlite/Database.h"
#include "tests/engine/TestBooks.h"
#include "tests/engine/TwinTables.h"

namespace pstolvane1::sqlite {
namespace {

class InBothJournalModes : public testing::TestWithParam<const char*> {};
INSTANTIATE_TEST_SUITE_P(JournalModes, InBothJournalModes, testing::Values("DELETE", "WAL"));

// What a statement without end comes to when it is cancelled as soon as another of the same state
// is through. Where they take turns, the other is not through before the first has used up its
// time.
std::string EndOfTheOneBeside(Provider& provider) {
  constexpr milliseconds kItsTime{2000};
  const auto snapshot = provider.TakeSnapshot(kNoLimit);
  const auto endless = snapshot->Run(
      "whole N: SELECT count(*) FROM a AS p, a AS q, a AS r, a AS s WHERE p.v + q.v + r.v + s.v > "
      "1",
      kItsTime);
  std::string end;
  std::thread reader([&] { end = ErrorOf([&] { Lines(*endless); }); });
  std::this_thread::sleep_for(milliseconds(30));
  EXPECT_EQ(OneValue(Lines(*snapshot, kReadB)), "0");
  endless->Cancel();
  reader.join();
  return end;
}

TEST_P(InBothJournalModes, OneStatementIsReadWhileAnotherRuns) {
  const TestBooks books(TwinTables(GetParam(), 1000));
  const auto provider = OpenPlain(books.Path());
  EXPECT_TRUE(provider->ReadsSideBySide());
  std::string end;
  // A machine with much to do may be too slow to open a second connection in the time for it.
  for (int attempt = 0; attempt < 10 && !end.ends_with("it was cancelled"); ++attempt) {
    end = EndOfTheOneBeside(*provider);
  }
  EXPECT_EQ(end, "-2147217900 while reading the rows: it was cancelled");
}

TEST_P(InBothJournalModes, WhatIsReadAtTheSameTimeIsOfOneStateWhileAThreadWrites) {
  const TestBooks books(TwinTables(GetParam(), 40));
  const auto provider = OpenPlain(books.Path());
  std::atomic<bool> stop{false};
  std::thread writer([&] {
    Writer other(books.Path());
    other.Run("PRAGMA synchronous = OFF");
    while (!stop) {
      other.Run(kStep);
      std::this_thread::sleep_for(milliseconds(2));
    }
  });
  int changes = 0;
  std::string last;
  for (int round = 0; round < 60 || changes < 100; ++round) {
    const auto snapshot = provider->TakeSnapshot(milliseconds(60000));
    const auto of_a = snapshot->Run(kReadA, kNoLimit);
    const auto of_b = snapshot->Run(kReadB, kNoLimit);
    std::string a;
    std::thread beside([&] { a = OneValue(Lines(*of_a)); });
    const std::string b = OneValue(Lines(*of_b));
    beside.join();
    EXPECT_EQ(a, b);
    EXPECT_NE(a, "mixed");
    changes += a != last ? 1 : 0;
    last = a;
  }
  stop = true;
  writer.join();
}

// Two connections to the same books.
class Pair {
 public:
  explicit Pair(const std::string& path) : first(path, watch), second(path, watch) {}

  // Whether the second joins the state of the first, with a change of the books at each of the
  // three moments that there are.
  bool Joins(const std::function<void()>& before_look, const std::function<void()>& before_begin,
             const std::function<void()>& before_join) {
    before_look();
    EXPECT_TRUE(second.Look());
    before_begin();
    (void)first.BeginState(watch);
    before_join();
    const bool joined = second.JoinState(first);
    EXPECT_TRUE(second.EndState());
    EXPECT_TRUE(first.EndState());
    return joined;
  }

  Watch watch{kNoLimit};
  Database first, second;
};

TEST_P(InBothJournalModes, AConnectionJoinsAStateOnlyIfNothingWasWrittenSinceItLooked) {
  const TestBooks books(TwinTables(GetParam(), 10));
  Writer writer(books.Path());
  Pair pair(books.Path());
  const auto write = [&] { writer.Run(kStep); };
  const auto nothing = [] {};
  EXPECT_TRUE(pair.Joins(nothing, nothing, nothing));
  EXPECT_TRUE(pair.Joins(write, nothing, nothing));
  EXPECT_FALSE(pair.Joins(nothing, write, nothing));
  EXPECT_TRUE(pair.Joins(nothing, nothing, nothing)) << "the next time";
  if (GetParam() == std::string("WAL")) {
    EXPECT_FALSE(pair.Joins(nothing, nothing, write));
  } else {
    EXPECT_TRUE(pair.Joins(nothing, nothing, [&] {
      EXPECT_EQ(writer.Try(kStep), SQLITE_BUSY) << "the state of the first is held";
      writer.Run("ROLLBACK");
    }));
  }
}

TEST(SecondConnections, DoNotWaitForAWriter) {
  const TestBooks books(TwinTables("DELETE", 10));
  Writer writer(books.Path());
  Pair pair(books.Path());
  writer.Run("BEGIN EXCLUSIVE");
  EXPECT_FALSE(pair.second.Look());
  writer.Run("COMMIT");
  EXPECT_TRUE(pair.second.Look());
  (void)pair.first.BeginState(pair.watch);
  // What waits to be written keeps out whoever begins to read.
  EXPECT_EQ(writer.Try(kStep), SQLITE_BUSY);
  EXPECT_FALSE(pair.second.JoinState(pair.first));
  EXPECT_TRUE(pair.second.EndState());
  EXPECT_TRUE(pair.first.EndState());
  writer.Run("ROLLBACK");
}

TEST(SecondConnections, AreOfNoUseOnAnotherFile) {
  const TestBooks books(TwinTables("DELETE", 10));
  const std::string other = books.Folder().File("other.db");
  Writer(other).Run(TwinTables("DELETE", 10));
  Watch watch(kNoLimit);
  const Database first(books.Path(), watch);
  const Database second(books.Path(), watch);
  EXPECT_TRUE(second.IsOnTheFileOf(first));
  EXPECT_FALSE(Database(other, watch).IsOnTheFileOf(first));
  std::filesystem::rename(other, books.Path());
  EXPECT_FALSE(Database(books.Path(), watch).IsOnTheFileOf(first)) << "it has taken its place";
}

}  // namespace
}  // namespace pstolvane1::sqlite
