// Queries that are read at the same time, on an engine that does so.
#include <chrono>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "session/data/MessageLoop.h"
#include "session/data/OpenTogether.h"
#include "tests/data/FetchFixture.h"

namespace pstolvane1 {
namespace {

constexpr const char* kShape =
    "shape {items} append ({moves} relate n to n) as chp, count(chp) as m";

class SideBySide : public FetchTest {
 protected:
  SideBySide() {
    books_->side_by_side = true;
    books_->AddNumbers("items", 3'000);
    books_->AddNumbers("moves", 9'000);
  }
  void Hold(const char* table) { books_->tables[table].gate_at = 10; }
  int RunsOf(const char* table) {
    const std::lock_guard lock(books_->mutex);
    return books_->runs[table];
  }
  // Lets `held` go on once `other` runs as well, or after a while when it does not.
  std::thread LetGoWhenRuns(const char* held, const char* other, bool& runs) {
    return std::thread([this, held, other, &runs] {
      books_->tables[held].gate->WaitForArrival();
      const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
      while (!(runs = RunsOf(other) == 1) && std::chrono::steady_clock::now() < end) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
      }
      books_->tables[held].gate->Open();
    });
  }
};

TEST_F(SideBySide, AChaptersQueryRunsWhileItsParentsIsRead) {
  for (const int options : {int{adOptionUnspecified}, int{adAsyncExecuteFetch}}) {
    books_->tables["items"].gate = std::make_shared<Gate>();
    books_->runs.clear();
    connection_.reset();
    Hold("items");
    bool runs = false;
    std::thread other = LetGoWhenRuns("items", "moves", runs);
    const RecordsetPtr rowset = Recordset::New();
    rowset->Open(kShape, Books(), adOpenStatic, adLockReadOnly, options);
    ASSERT_TRUE(PumpUntil([&] { return rowset->State() == adStateOpen; }));
    other.join();
    EXPECT_TRUE(runs);
    EXPECT_EQ(rowset->RecordCount(), 3'000);
    rowset->Filter("m = 1");
    EXPECT_EQ(rowset->RecordCount(), 3'000);
  }
}

TEST_F(SideBySide, RowsetsThatAreOpenedTogetherAreReadAtTheSameTimeInOneState) {
  Hold("items");
  bool runs = false;
  std::thread other = LetGoWhenRuns("items", "moves", runs);
  const std::vector<RowsetQuery> queries{{Recordset::New(), "items"}, {Recordset::New(), "moves"}};
  {
    const Connection::OneState state(Books());
    OpenTogether(Books(), queries);
  }
  other.join();
  EXPECT_TRUE(runs);
  EXPECT_EQ(queries[0].rowset->RecordCount(), 3'000);
  EXPECT_EQ(queries[1].rowset->RecordCount(), 9'000);
  EXPECT_EQ(books_->snapshots_taken, 1);
}

TEST_F(SideBySide, AnEngineThatDoesNotIsAskedForOneAfterAnother) {
  books_->side_by_side = false;
  Hold("items");
  int runs = 0;
  std::thread other([&] {
    books_->tables["items"].gate->WaitForArrival();
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    runs = RunsOf("moves");
    books_->tables["items"].gate->Open();
  });
  const std::vector<RowsetQuery> queries{{Recordset::New(), kShape}, {Recordset::New(), "moves"}};
  OpenTogether(Books(), queries);
  other.join();
  EXPECT_EQ(runs, 0);
  EXPECT_EQ(queries[1].rowset->RecordCount(), 9'000);
}

TEST_F(SideBySide, AnErrorEndsWhatIsReadBesideIt) {
  books_->tables["items"].fails_at = 5;
  Hold("moves");  // nobody opens it
  for (const int options : {int{adOptionUnspecified}, int{adAsyncExecuteFetch}}) {
    const RecordsetPtr rowset = Recordset::New();
    std::string told;
    rowset->FetchComplete = [&](const Error* error, int, Recordset&) {
      told = error ? error->Description() : "no error";
    };
    try {
      rowset->Open(kShape, Books(), adOpenStatic, adLockReadOnly, options);
      ASSERT_TRUE(PumpUntil([&] { return !told.empty(); }));
    } catch (const Error& error) {
      told = error.Description();
    }
    EXPECT_EQ(told, "while reading the query of the shape command: row 5 is damaged");
  }
}

TEST_F(SideBySide, OfRowsetsOpenedTogetherTheFirstErrorIsToldAndThoseBehindStayClosed) {
  books_->tables["moves"].fails_at = 5;
  books_->AddNumbers("third", 20'000).gate_at = 10;  // nobody opens it
  const std::vector<RowsetQuery> queries{
      {Recordset::New(), "items"}, {Recordset::New(), "moves"}, {Recordset::New(), "third"}};
  const std::string error = Thrown([&] { OpenTogether(Books(), queries); });
  EXPECT_EQ(error, "-2147217900: row 5 is damaged");
  EXPECT_EQ(queries[0].rowset->RecordCount(), 3'000);
  EXPECT_EQ(queries[1].rowset->State(), adStateClosed);
  EXPECT_EQ(queries[2].rowset->State(), adStateClosed);
}

TEST_F(SideBySide, AFetchThatIsClosedEndsAllThatItReads) {
  Hold("items");
  Hold("moves");
  const RecordsetPtr rowset = Recordset::New();
  rowset->Open(kShape, Books(), adOpenStatic, adLockReadOnly, adAsyncExecuteFetch);
  books_->tables["items"].gate->WaitForArrival();
  books_->tables["moves"].gate->WaitForArrival();
  rowset->Close();
}

}  // namespace
}  // namespace pstolvane1
