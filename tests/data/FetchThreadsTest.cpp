// Threads beside each other, and objects that go at any moment; for the sanitizers.
#include <chrono>
#include <gtest/gtest.h>
#include <memory>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "session/data/Connection.h"
#include "session/data/MessageLoop.h"
#include "session/data/Recordset.h"
#include "tests/data/FakeBooks.h"

namespace pstolvane1 {
namespace {

using std::chrono::microseconds;

// One thread's day: connect in the background, open four rowsets, read them, and compare.
void WorkOnOwnBooks(int seed) {
  const auto books = std::make_shared<FakeBooks>();
  books->AddNumbers("items", 3'000 + static_cast<std::size_t>(seed));
  books->AddNumbers("moves", 9'000);
  const auto thread = std::this_thread::get_id();
  for (int round = 0; round < 5; ++round) {
    const auto connection = Connection::New(books->Factory(books));
    connection->Open("books", "", "", adAsyncConnect);
    ASSERT_TRUE(PumpUntil([&] { return connection->State() == adStateOpen; }));
    std::vector<RecordsetPtr> rowsets;
    int complete = 0;
    for (const char* source :
         {"items", "moves", "shape {items} append ({moves} relate n to n) as chp, count(chp) as m",
          "shape {moves} as c compute c, sum(c.n) as s by t"}) {
      const RecordsetPtr& rowset = rowsets.emplace_back(Recordset::New());
      rowset->FetchComplete = [&](const Error* error, int, Recordset&) {
        EXPECT_EQ(error, nullptr);
        EXPECT_EQ(std::this_thread::get_id(), thread);
        ++complete;
      };
      rowset->Open(source, connection, adOpenStatic, adLockReadOnly, adAsyncExecuteFetch);
    }
    ASSERT_TRUE(PumpUntil([&] { return complete == 4; }));
    const auto items = 3'000 + seed;
    EXPECT_EQ(rowsets[0]->RecordCount(), items);
    EXPECT_EQ(rowsets[1]->RecordCount(), 9'000);
    EXPECT_EQ(rowsets[2]->RecordCount(), items);
    EXPECT_EQ(rowsets[3]->RecordCount(), 9'000);
    rowsets[2]->Filter("m = 1");
    EXPECT_EQ(rowsets[2]->RecordCount(), items);
    rowsets[3]->Find("s = 7777");
    EXPECT_EQ(rowsets[3]->Collect("t").ToText(), "row 7777");
    const RecordsetPtr again = Recordset::New();
    again->Open("items", connection);
    EXPECT_EQ(again->RecordCount(), items);
  }
  EXPECT_TRUE(AllGone(*books));
}

TEST(FetchThreads, FourThreadsWithTheirOwnConnectionsShareNothing) {
  std::vector<std::thread> threads;
  for (int seed = 0; seed < 4; ++seed) threads.emplace_back(WorkOnOwnBooks, seed);
  for (std::thread& thread : threads) thread.join();
}

TEST(FetchThreads, FourThreadsOnTheSameBooksEachWithItsConnection) {
  const auto books = std::make_shared<FakeBooks>();
  books->AddNumbers("t", 20'000);
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([&] {
      const auto connection = Connected(books);
      const RecordsetPtr rowset = Recordset::New();
      rowset->Open("t", connection, adOpenStatic, adLockReadOnly, adAsyncExecuteFetch);
      EXPECT_TRUE(PumpUntil([&] { return rowset->State() == adStateOpen; }));
      EXPECT_EQ(rowset->RecordCount(), 20'000);
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_TRUE(AllGone(*books));
}

TEST(FetchThreads, AThreadMayEndWhileItsRowsetsFetch) {
  const auto books = std::make_shared<FakeBooks>();
  FakeTable& table = books->AddNumbers("t", 50'000);
  table.per_chunk = microseconds(200);
  for (int round = 0; round < 20; ++round) {
    std::thread([&] {
      const auto connection = Connected(books);
      const RecordsetPtr rowset = Recordset::New();
      rowset->FetchProgress = [](std::int32_t, std::int32_t, int, Recordset&) { FAIL(); };
      rowset->FetchComplete = [](const Error*, int, Recordset&) { FAIL(); };
      rowset->Open("t", connection, adOpenStatic, adLockReadOnly, adAsyncExecuteFetch);
      std::this_thread::sleep_for(microseconds(150 * round));
    }).join();
  }
  EXPECT_TRUE(AllGone(*books));
}

// What a host may do to a running fetch, at a random moment.
TEST(FetchThreads, ObjectsMayGoAtAnyMoment) {
  const auto books = std::make_shared<FakeBooks>();
  books->AddNumbers("items", 9'000).per_chunk = microseconds(100);
  books->AddNumbers("moves", 20'000).per_chunk = microseconds(100);
  std::mt19937 random(1);
  const char* sources[] = {"items", "moves", "shape {items} append ({moves} relate n to n) as chp",
                           "shape {items} as c compute c by n"};
  for (int round = 0; round < 200; ++round) {
    auto connection = Connection::New(books->Factory(books));
    bool dead = false;  // of the rowset whose events must not come any more
    int complete = 0;
    connection->Open("books", "", "", round % 2 == 0 ? int{adAsyncConnect} : -1);
    if (random() % 16 == 0) continue;  // it goes while it connects
    ASSERT_TRUE(PumpUntil([&] { return connection->State() == adStateOpen; }));
    RecordsetPtr rowset = Recordset::New();
    rowset->FetchProgress = [&](std::int32_t, std::int32_t, int, Recordset&) {
      EXPECT_FALSE(dead);
    };
    rowset->FetchComplete = [&](const Error*, int, Recordset&) {
      EXPECT_FALSE(dead);
      ++complete;
    };
    rowset->Open(sources[random() % 4], connection, adOpenStatic, adLockReadOnly,
                 adAsyncExecuteFetch);
    const auto until = std::chrono::steady_clock::now() + microseconds(random() % 3'000);
    while (std::chrono::steady_clock::now() < until) {
      (void)WaitForEvents(std::chrono::milliseconds(0));
    }
    RecordsetPtr clone = random() % 2 == 0 ? rowset->Clone() : nullptr;
    switch (random() % 6) {
      case 0:
        dead = true;
        rowset.reset();
        break;
      case 1:
        dead = true;
        rowset->Close();
        break;
      case 2:
        connection->Cancel();
        break;
      case 3:
        connection->Close();
        break;
      case 4:
        connection.reset();
        break;
      default:
        rowset->ActiveConnection(nullptr);
        connection.reset();
        break;
    }
    if (rowset && !dead) {
      ASSERT_TRUE(PumpUntil([&] { return rowset->State() == adStateOpen; }));
      ASSERT_EQ(complete, 1);
    }
    if (clone) {
      for (const Recordset::Row row : clone->Rows()) ASSERT_FALSE(row[clone->Column("n")].IsNull());
    }
  }
  DoEvents();
  EXPECT_TRUE(AllGone(*books));
}

}  // namespace
}  // namespace pstolvane1
