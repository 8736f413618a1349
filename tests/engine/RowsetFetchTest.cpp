// Rowsets of real books through the front end, while another program writes.
#include <atomic>
#include <chrono>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "session/data/Connection.h"
#include "session/data/MessageLoop.h"
#include "session/data/Recordset.h"
#include "session/engine/Engines.h"
#include "tests/engine/TestBooks.h"

namespace pstolvane1::sqlite {
namespace {

constexpr int kRows = 12'000;

// Two tables whose rows all carry the number of the last write: a reader that sees two numbers has
// mixed two states.
std::string CountedTables(const std::string& journal) {
  return "PRAGMA journal_mode=" + journal +
         ";CREATE TABLE items(item_id INTEGER PRIMARY KEY, state INTEGER);"
         "CREATE TABLE moves(move_id INTEGER PRIMARY KEY, item_id INTEGER, state INTEGER);"
         "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<" +
         std::to_string(kRows) +
         ") INSERT INTO items SELECT i, 0 FROM n;"
         "INSERT INTO moves SELECT item_id, item_id, state FROM items;";
}
constexpr auto kWrite =
    "BEGIN IMMEDIATE; UPDATE items SET state=state+1; UPDATE moves SET state=state+1; COMMIT";

std::shared_ptr<Connection> Open(const std::string& path) {
  auto connection = NewConnection();
  connection->CommandTimeout(60);
  connection->Open(path);
  return connection;
}

void WaitFor(const std::vector<RecordsetPtr>& rowsets) {
  for (const RecordsetPtr& rowset : rowsets) {
    while (rowset->State() != adStateOpen) (void)WaitForEvents(std::chrono::seconds(1));
  }
}

// The one state of all rows, or -1.
int StateOf(Recordset& rowset) {
  const ColumnHandle state = rowset.Column("state");
  const int first = rowset.Int32(state);
  int rows = 0;
  for (; !rowset.Eof(); rowset.MoveNext(), ++rows) {
    if (rowset.Int32(state) != first) return -1;
  }
  return rows == kRows ? first : -1;
}

class RowsetsWhileAnotherWrites : public testing::TestWithParam<const char*> {};

TEST_P(RowsetsWhileAnotherWrites, SeeOneStateInEachScope) {
  const TestBooks books(CountedTables(GetParam()));
  const auto connection = Open(books.Path());
  std::atomic<bool> stop = false;
  std::thread writer([&] {
    Writer other(books.Path());
    while (!stop) {
      other.Run(kWrite);
      std::this_thread::sleep_for(milliseconds(2));
    }
  });
  int last = -1;
  int changes = 0;
  for (int round = 0; round < 12; ++round) {
    std::vector<RecordsetPtr> rowsets;
    {
      const Connection::OneState scope(connection);
      for (const char* source :
           {"select state from items order by item_id", "select state from moves",
            "SHAPE {select item_id, state from items} APPEND ({select item_id, state as move_state "
            "from moves} RELATE item_id TO item_id, state TO move_state) AS chp, COUNT(chp) AS "
            "n"}) {
        const RecordsetPtr& rowset = rowsets.emplace_back(Recordset::New());
        rowset->FetchComplete = [](const Error* error, int, Recordset&) {
          EXPECT_EQ(error, nullptr) << (error ? error->Description() : "");
        };
        rowset->Properties()("Initial Fetch Size") = 1;
        rowset->Open(source, connection, adOpenStatic, adLockReadOnly, adAsyncExecuteFetch);
        std::this_thread::sleep_for(milliseconds(1));  // the writer's chance to come between
      }
    }
    WaitFor(rowsets);
    const int state = StateOf(*rowsets[0]);
    EXPECT_EQ(StateOf(*rowsets[1]), state);
    EXPECT_EQ(StateOf(*rowsets[2]), state);
    rowsets[2]->Filter("n = 1");
    EXPECT_EQ(rowsets[2]->RecordCount(), kRows) << "every parent has its child of the same state";
    ASSERT_GE(state, last);
    changes += state != last ? 1 : 0;
    last = state;
  }
  stop = true;
  writer.join();
  EXPECT_GT(changes, 1);
}

INSTANTIATE_TEST_SUITE_P(JournalModes, RowsetsWhileAnotherWrites, testing::Values("DELETE", "WAL"));

TEST(RowsetsOfBooks, ALockedStateDoesNotHoldTheThreadAndEndsAtTheTimeLimit) {
  const TestBooks books(CountedTables("DELETE"));
  const auto connection = Open(books.Path());
  connection->CommandTimeout(1);
  Writer other(books.Path());
  other.Run("BEGIN EXCLUSIVE; UPDATE items SET state = 7");
  const RecordsetPtr rowset = Recordset::New();
  std::string failure;
  rowset->FetchComplete = [&](const Error* error, int status, Recordset&) {
    EXPECT_EQ(status, adStatusErrorsOccurred);
    failure = error ? error->Description() : "none";
  };
  const auto begin = std::chrono::steady_clock::now();
  rowset->Open("select state from items", connection, adOpenStatic, adLockReadOnly,
               adAsyncExecuteFetch);
  EXPECT_LT(std::chrono::steady_clock::now() - begin, milliseconds(900));
  WaitFor({rowset});
  EXPECT_NE(failure.find("lock"), std::string::npos) << failure;
  other.Run("ROLLBACK");
  rowset->Close();
  rowset->Open("select state from items");
  EXPECT_EQ(StateOf(*rowset), 0);
}

TEST(RowsetsOfBooks, APlaceInAQueryIsAPlaceInTheShapeCommand) {
  const TestBooks books(CountedTables("WAL"));
  const auto connection = Open(books.Path());
  const std::string command =
      "SHAPE {select item_id from items}\nAPPEND ({select item_id, colour from moves} RELATE "
      "item_id TO item_id) AS chp";
  const std::string error = ErrorOf([&] { Recordset::New()->Open(command, connection); });
  EXPECT_TRUE(error.starts_with("-2147217900 while reading the query of chp: line 2, column 26: "))
      << error;
  EXPECT_NE(error.find("colour"), std::string::npos) << error;
}

TEST(RowsetsOfBooks, CancelEndsALongQueryInTheMiddle) {
  const TestBooks books(CountedTables("WAL"));
  const auto connection = Open(books.Path());
  const RecordsetPtr rowset = Recordset::New();
  std::string failure;
  rowset->FetchComplete = [&](const Error* error, int, Recordset&) {
    failure = error ? error->Description() : "none";
  };
  rowset->Open(
      "select count(*) as n from items a, moves b, items c where a.state = b.state and "
      "b.state = c.state",
      connection, adOpenStatic, adLockReadOnly, adAsyncExecuteFetch);
  (void)WaitForEvents(milliseconds(50));
  EXPECT_EQ(rowset->State(), adStateOpen + adStateFetching);
  connection->Cancel();
  WaitFor({rowset});
  EXPECT_EQ(failure, "the fetch was cancelled");
}

TEST(RowsetsOfBooks, FourApartmentsReadTheSameBooksAtTheSameTime) {
  const TestBooks books(CountedTables("WAL"));
  std::vector<std::thread> apartments;
  for (int i = 0; i < 4; ++i) {
    apartments.emplace_back([&] {
      const auto connection = NewConnection();
      connection->Open(books.Path(), "", "", adAsyncConnect);
      while (connection->State() == adStateConnecting) (void)WaitForEvents(std::chrono::seconds(1));
      for (int round = 0; round < 3; ++round) {
        std::vector<RecordsetPtr> rowsets;
        for (const char* source :
             {"select state from items", "select state from moves",
              "shape {select item_id, state from moves} as c compute c by item_id, state"}) {
          rowsets.push_back(Recordset::New());
          rowsets.back()->Open(source, connection, adOpenStatic, adLockReadOnly,
                               adAsyncExecuteFetch);
        }
        WaitFor(rowsets);
        for (const RecordsetPtr& rowset : rowsets) EXPECT_EQ(StateOf(*rowset), 0);
        const RecordsetPtr dropped = Recordset::New();
        dropped->Open("select state from items", connection, adOpenStatic, adLockReadOnly,
                      adAsyncExecuteFetch);
      }
    });
  }
  for (std::thread& apartment : apartments) apartment.join();
}

}  // namespace
}  // namespace pstolvane1::sqlite
