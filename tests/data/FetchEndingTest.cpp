// Fetches that end early, and what handlers may do while they run.
#include <algorithm>
#include <chrono>
#include <memory>
#include <stdexcept>
#include <string>

#include "tests/data/FetchFixture.h"

namespace pstolvane1 {
namespace {

// --- Ending early

class EndingTest : public FetchTest {
 protected:
  // A fetch that has handed over its first row and waits in the middle of the rest.
  RecordsetPtr Blocked(const std::string& name) {
    FakeTable& table = books_->AddNumbers(name, 10'000);
    table.gate_at = 2'000;
    RecordsetPtr rowset = Listening(name);
    OpenBeside(*rowset, name);
    table.gate->WaitForArrival();
    return rowset;
  }
  // Until the fetch has ended, whatever of it arrives.
  void Settle() {
    EXPECT_TRUE(PumpUntil([&] { return books_->live == (connection_ ? 1 : 0); }));
    (void)WaitForEvents(milliseconds(5));
  }
};

TEST_F(EndingTest, CloseEndsTheFetchAndNothingIsToldAfterwards) {
  const RecordsetPtr rowset = Blocked("rs");
  rowset->Close();
  EXPECT_EQ(rowset->State(), adStateClosed);
  Settle();
  EXPECT_EQ(events_, Events{});
}

TEST_F(EndingTest, ARowsetThatGoesTakesItsFetchWithIt) {
  RecordsetPtr rowset = Blocked("rs");
  rowset.reset();
  Settle();
  EXPECT_EQ(events_, Events{});
}

TEST_F(EndingTest, ARowsetThatIsClosedCanFetchAgain) {
  const RecordsetPtr rowset = Blocked("rs");
  rowset->Close();
  books_->AddNumbers("short", 2);
  OpenBeside(*rowset, "short");
  ASSERT_TRUE(PumpUntilEvents(3));
  EXPECT_EQ(events_, (Events{"rs progress 1/1", "rs progress 2/2", "rs complete 1"}));
  EXPECT_EQ(Dump(*rowset), "n=0 t=row 0\nn=1 t=row 1\n");
  Settle();
}

TEST_F(EndingTest, ClosingOneRowsetLeavesItsNeighbourOnTheSameStateAlone) {
  const auto books = Books();
  const Connection::OneState scope(books);
  const RecordsetPtr first = Blocked("first");
  const RecordsetPtr second = Blocked("second");
  first->Close();
  books_->tables["second"].gate->Open();
  ASSERT_TRUE(PumpUntil([&] { return second->State() == adStateOpen; }));
  EXPECT_EQ(events_.back(), "second complete 1");
  EXPECT_EQ(second->RecordCount(), 10'000);
}

TEST_F(EndingTest, CancelOfTheConnectionCompletesEveryFetchWithAnError) {
  const RecordsetPtr first = Blocked("first");
  const RecordsetPtr second = Blocked("second");
  connection_->Cancel();
  ASSERT_TRUE(
      PumpUntil([&] { return first->State() == adStateOpen && second->State() == adStateOpen; }));
  EXPECT_EQ(std::count(events_.begin(), events_.end(), "first complete 2 the fetch was cancelled"),
            1);
  EXPECT_EQ(std::count(events_.begin(), events_.end(), "second complete 2 the fetch was cancelled"),
            1);
  EXPECT_EQ(first->RecordCount(), 1);
  EXPECT_EQ(connection_->State(), adStateOpen);
  books_->AddNumbers("t", 2);
  EXPECT_EQ(Open("t")->RecordCount(), 2);
}

TEST_F(EndingTest, CancelEndsTheWaitForALock) {
  books_->AddNumbers("t", 3);
  books_->snapshot_gate = std::make_shared<Gate>();
  const RecordsetPtr rowset = Listening("rs");
  OpenBeside(*rowset, "t");
  books_->snapshot_gate->WaitForArrival();
  connection_->Cancel();
  ASSERT_TRUE(PumpUntilEvents(1));
  EXPECT_EQ(events_, Events{"rs complete 2 the fetch was cancelled"});
}

TEST_F(EndingTest, CloseOfTheConnectionCompletesItsFetchesAndTheirRowsStay) {
  const RecordsetPtr rowset = Blocked("rs");
  ASSERT_TRUE(PumpUntilEvents(1));
  connection_->Close();
  EXPECT_EQ(connection_->State(), adStateClosed);
  ASSERT_TRUE(PumpUntilEvents(2));
  EXPECT_EQ(events_, (Events{"rs progress 1/1", "rs complete 2 the fetch was cancelled"}));
  EXPECT_EQ(rowset->Collect("t").ToText(), "row 0");
}

TEST_F(EndingTest, AConnectionThatIsLetGoLivesAsLongAsItsRowsets) {
  RecordsetPtr rowset = Blocked("rs");
  connection_.reset();
  books_->tables["rs"].gate->Open();
  ASSERT_TRUE(PumpUntil([&] { return rowset->State() == adStateOpen; }));
  EXPECT_EQ(events_.back(), "rs complete 1");
  EXPECT_EQ(rowset->ActiveConnection()->State(), adStateOpen);
  rowset.reset();
  EXPECT_TRUE(AllGone(*books_));
}

TEST_F(EndingTest, ADisconnectedRowsetKeepsItsRowsAndGoesOnFetching) {
  const RecordsetPtr rowset = Blocked("rs");
  rowset->ActiveConnection(nullptr);
  connection_.reset();
  books_->tables["rs"].gate->Open();
  ASSERT_TRUE(PumpUntil([&] { return rowset->State() == adStateOpen; }));
  EXPECT_EQ(rowset->ActiveConnection(), nullptr);
  EXPECT_EQ(rowset->RecordCount(), 10'000);
  EXPECT_TRUE(AllGone(*books_));
  EXPECT_EQ(rowset->Clone()->RecordCount(), 10'000);
}

TEST_F(EndingTest, ACloneHasTheRowsThatCameBeforeAndThoseThatFollow) {
  const RecordsetPtr rowset = Blocked("rs");
  ASSERT_TRUE(PumpUntilEvents(1));
  const RecordsetPtr clone = rowset->Clone();
  EXPECT_EQ(clone->RecordCount(), 1);
  books_->tables["rs"].gate->Open();
  ASSERT_TRUE(PumpUntil([&] { return rowset->State() == adStateOpen; }));
  EXPECT_EQ(clone->RecordCount(), 10'000);
  rowset->Close();
  EXPECT_EQ(clone->RecordCount(), 10'000);
}

// --- Handlers

TEST_F(FetchTest, AHandlerMayCloseItsRowset) {
  books_->AddNumbers("t", 10'000);
  const RecordsetPtr rowset = Listening("rs");
  int progress = 0;
  rowset->FetchProgress = [&](std::int32_t, std::int32_t, int, Recordset& self) {
    ++progress;
    self.Close();
  };
  OpenBeside(*rowset, "t");
  ASSERT_TRUE(PumpUntil([&] { return progress > 0; }));
  (void)WaitForEvents(milliseconds(30));
  EXPECT_EQ(progress, 1);
  EXPECT_EQ(events_, Events{});
}

TEST_F(FetchTest, AHandlerMayDropItsRowsetWhichLivesUntilItReturns) {
  books_->AddNumbers("t", 10'000);
  RecordsetPtr rowset = Listening("rs");
  std::string seen;
  rowset->FetchComplete = [&](const Error*, int, Recordset& self) {
    rowset.reset();
    self.FetchComplete = nullptr;
    seen = std::to_string(self.RecordCount());
  };
  OpenBeside(*rowset, "t");
  ASSERT_TRUE(PumpUntil([&] { return !seen.empty(); }));
  EXPECT_EQ(seen, "10000");
}

TEST_F(FetchTest, AHandlerMayPumpAndOpenAndTheOrderHolds) {
  books_->AddNumbers("t", 5'000);
  const RecordsetPtr rowset = Listening("rs");
  RecordsetPtr second;
  const auto record = rowset->FetchProgress;
  rowset->FetchProgress = [&, record](std::int32_t progress, std::int32_t max_progress, int status,
                                      Recordset& self) {
    record(progress, max_progress, status, self);
    DoEvents();
  };
  const auto complete = rowset->FetchComplete;
  rowset->FetchComplete = [&, complete](const Error* error, int status, Recordset& self) {
    complete(error, status, self);
    second = Listening("second");
    OpenBeside(*second, "t");
    EXPECT_TRUE(PumpUntil([&] { return second->State() == adStateOpen; }));
  };
  OpenBeside(*rowset, "t");
  ASSERT_TRUE(PumpUntilEvents(8));
  EXPECT_EQ(events_, (Events{"rs progress 1/1", "rs progress 4097/4097", "rs progress 5000/5000",
                             "rs complete 1", "second progress 1/1", "second progress 4097/4097",
                             "second progress 5000/5000", "second complete 1"}));
}

TEST_F(FetchTest, WhatAHandlerThrowsGoesToThePumpAndTheFetchGoesOn) {
  books_->AddNumbers("t", 5'000);
  const RecordsetPtr rowset = Listening("rs");
  int thrown = 0;
  rowset->FetchProgress = [](std::int32_t, std::int32_t, int, Recordset&) {
    throw std::runtime_error("handler");
  };
  OpenBeside(*rowset, "t");
  while (rowset->State() != adStateOpen) {
    try {
      (void)WaitForEvents(std::chrono::seconds(10));
    } catch (const std::runtime_error&) {
      ++thrown;
    }
  }
  EXPECT_EQ(thrown, 3);
  EXPECT_EQ(events_, Events{"rs complete 1"});
  EXPECT_EQ(rowset->RecordCount(), 5'000);
}

}  // namespace
}  // namespace pstolvane1
