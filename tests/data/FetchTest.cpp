// Opening rowsets, at once and beside the thread.
#include <algorithm>
#include <chrono>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <poll.h>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "tests/data/FetchFixture.h"

namespace pstolvane1 {
namespace {

// --- At once

TEST_F(FetchTest, AQueryIsOpenedWithAllItsRows) {
  books_->Add("t", "id:int name:text:20\n 1 Bolt\n 2 (null)\n");
  const RecordsetPtr rowset = Open("t");
  EXPECT_EQ(rowset->State(), adStateOpen);
  EXPECT_EQ(ColumnsOf(*rowset), "id:3 name:200");
  EXPECT_EQ(rowset->Collect("name").ToText(), "Bolt");
  EXPECT_EQ(Dump(*rowset), "id=1 name=Bolt\nid=2 name=(null)\n");
}

TEST_F(FetchTest, RowCountsAroundTheSizesOfChunksAreExact) {
  for (const std::size_t rows : {0U, 1U, 255U, 256U, 257U, 4351U, 4352U, 4353U, 8448U, 20'000U}) {
    books_->AddNumbers("t", rows);
    const RecordsetPtr rowset = Open("t");
    ASSERT_EQ(rowset->RecordCount(), static_cast<std::int32_t>(rows));
    std::int32_t expected = 0;
    for (const ColumnHandle n = rowset->Column("n"); !rowset->Eof(); rowset->MoveNext()) {
      ASSERT_EQ(rowset->Int32(n), expected++);
    }
    ASSERT_EQ(expected, static_cast<std::int32_t>(rows));
  }
}

TEST_F(FetchTest, NothingIsFetchedOnAnotherThreadWhenOpenedAtOnce) {
  books_->AddNumbers("t", 10'000);
  (void)Open("t");
  EXPECT_EQ(books_->reading_threads, std::set<std::thread::id>{thread_});
}

TEST_F(FetchTest, NoEventIsRaisedWhenOpenedAtOnce) {
  books_->AddNumbers("t", 10'000);
  const RecordsetPtr rowset = Listening("rs");
  rowset->Open("t");
  DoEvents();
  EXPECT_EQ(events_, Events{});
}

TEST_F(FetchTest, AFailedQueryLeavesTheRowsetClosedAndUsable) {
  books_->AddNumbers("bad", 5'000).fails_at = 4'900;
  books_->AddNumbers("good", 3);
  const RecordsetPtr rowset = Recordset::New();
  rowset->ActiveConnection(Books());
  EXPECT_EQ(Thrown([&] { rowset->Open("bad"); }), "-2147217900: row 4900 is damaged");
  EXPECT_EQ(rowset->State(), adStateClosed);
  EXPECT_EQ(Thrown([&] { rowset->Open("none"); }),
            "-2147217900: line 1, column 1: there is no table none");
  rowset->Open("good");
  EXPECT_EQ(rowset->RecordCount(), 3);
}

TEST_F(FetchTest, MisuseIsRefused) {
  books_->AddNumbers("t", 3);
  const RecordsetPtr rowset = Recordset::New();
  EXPECT_EQ(Thrown([&] { rowset->Open("t"); }),
            "3709: the rowset has no connection to open a query on");
  EXPECT_EQ(Thrown([&] { rowset->Open("t", Connection::New(books_->Factory(books_))); }),
            "3709: the connection is not open");
  EXPECT_EQ(Thrown([&] { rowset->Open("t", Books(), 1); }),
            "3001: the cursor type of a query is -1 or 3, not 1");
  EXPECT_EQ(Thrown([&] { rowset->Open("t", Books(), 3, 2); }),
            "3001: the lock type of a query is -1 or 1, not 2");
  EXPECT_EQ(Thrown([&] { rowset->Open("t", Books(), 3, 1, 16); }),
            "3001: options of a query is -1 or 48, not 16");
  rowset->Open("t", Books());
  EXPECT_EQ(Thrown([&] { rowset->Open("t"); }), "3001: the rowset is open already: close it first");
}

TEST_F(FetchTest, TheTimeLimitOfTheConnectionGoesToTheStateAndTheQuery) {
  books_->AddNumbers("t", 3);
  Books()->CommandTimeout(7);
  books_->time_limits.clear();
  (void)Open("t");
  EXPECT_EQ(books_->time_limits,
            (std::vector<milliseconds>{std::chrono::seconds(7), std::chrono::seconds(7)}));
}

TEST_F(FetchTest, TablesThatChangedBehindTheConnectionAreRefused) {
  FakeTable& table = books_->AddNumbers("t", 3);
  table.cells = [&](std::size_t, int) { return std::vector<Variant>{1, "x"}; };
  Books();
  // The columns are told by Describe, then the table changes, then the cursor has others.
  struct Changing final : Provider {
    std::shared_ptr<FakeBooks> books;
    std::shared_ptr<Provider> real;
    std::shared_ptr<Snapshot> TakeSnapshot(milliseconds limit) override {
      books->tables["t"].columns[0].type = adBigInt;
      return real->TakeSnapshot(limit);
    }
    std::vector<ColumnInfo> Describe(std::string_view select) override {
      return real->Describe(select);
    }
    std::string Translate(std::string_view select) override { return real->Translate(select); }
    void Cancel() noexcept override { real->Cancel(); }
  };
  const auto connection = Connection::New([this](const std::string& text, milliseconds limit) {
    auto changing = std::make_shared<Changing>();
    changing->books = books_;
    changing->real = books_->Factory(books_)(text, limit);
    return changing;
  });
  connection->Open("b");
  EXPECT_EQ(Thrown([&] { Recordset::New()->Open("t", connection); }),
            "-2147217900: the tables of the books were changed while the connection was open: "
            "connect again");
}

// --- Beside the thread

TEST_F(FetchTest, TheFirstRowComesAloneAndTheRestInWholeChunks) {
  books_->AddNumbers("t", 10'000);
  const RecordsetPtr rowset = Listening("rs");
  OpenBeside(*rowset, "t");
  EXPECT_EQ(rowset->State(), adStateOpen + adStateFetching);
  ASSERT_TRUE(PumpUntilEvents(5));
  EXPECT_EQ(events_, (Events{"rs progress 1/1", "rs progress 4097/4097", "rs progress 8193/8193",
                             "rs progress 10000/10000", "rs complete 1"}));
  EXPECT_EQ(rowset->State(), adStateOpen);
  EXPECT_EQ(rowset->RecordCount(), 10'000);
  EXPECT_EQ(rowset->Collect("n").ToInt32(), 0);
  rowset->MoveLast();
  EXPECT_EQ(rowset->Collect("t").ToText(), "row 9999");
  EXPECT_EQ(books_->reading_threads.count(thread_), 0U);
  (void)WaitForEvents(milliseconds(20));
  EXPECT_EQ(events_.size(), 5U);
}

TEST_F(FetchTest, TheColumnsAreThereBeforeTheFirstRow) {
  FakeTable& table = books_->AddNumbers("t", 3);
  table.gate_at = 0;
  const RecordsetPtr rowset = Listening("rs");
  OpenBeside(*rowset, "t");
  EXPECT_EQ(ColumnsOf(*rowset), "n:3 t:200");
  EXPECT_EQ(rowset->RecordCount(), 0);
  EXPECT_TRUE(rowset->Bof() && rowset->Eof());
  table.gate->Open();
  ASSERT_TRUE(PumpUntilEvents(3));
  EXPECT_EQ(rowset->Collect("n").ToInt32(), 0);
}

TEST_F(FetchTest, TheFirstRowIsThereWhileTheRestIsStillBeingFetched) {
  FakeTable& table = books_->AddNumbers("t", 10);
  table.gate_at = 1;
  const RecordsetPtr rowset = Listening("rs");
  OpenBeside(*rowset, "t");
  ASSERT_TRUE(PumpUntilEvents(1));
  EXPECT_EQ(rowset->RecordCount(), 1);
  EXPECT_EQ(rowset->Collect("t").ToText(), "row 0");
  EXPECT_EQ(rowset->State(), adStateOpen + adStateFetching);
  rowset->MoveNext();
  EXPECT_TRUE(rowset->Eof());
  table.gate->Open();
  ASSERT_TRUE(PumpUntilEvents(3));
  EXPECT_EQ(events_, (Events{"rs progress 1/1", "rs progress 10/10", "rs complete 1"}));
  EXPECT_EQ(rowset->RecordCount(), 10);
}

TEST_F(FetchTest, WithoutAFetchSizeTheFirstHandOverHasFiftyRows) {
  books_->AddNumbers("t", 60);
  const RecordsetPtr rowset = Listening("rs");
  rowset->Properties()("Initial Fetch Size") = 50;
  OpenBeside(*rowset, "t");
  ASSERT_TRUE(PumpUntilEvents(3));
  EXPECT_EQ(events_, (Events{"rs progress 50/50", "rs progress 60/60", "rs complete 1"}));
}

TEST_F(FetchTest, NoRowsCompleteWithoutProgress) {
  books_->AddNumbers("t", 0);
  const RecordsetPtr rowset = Listening("rs");
  OpenBeside(*rowset, "t");
  ASSERT_TRUE(PumpUntilEvents(1));
  EXPECT_EQ(events_, Events{"rs complete 1"});
  EXPECT_TRUE(rowset->Bof() && rowset->Eof());
}

TEST_F(FetchTest, NothingIsSeenUntilTheThreadPumps) {
  books_->AddNumbers("t", 50'000);
  const RecordsetPtr rowset = Listening("rs");
  OpenBeside(*rowset, "t");
  std::this_thread::sleep_for(milliseconds(100));
  EXPECT_EQ(events_, Events{});
  EXPECT_EQ(rowset->RecordCount(), 0);
  EXPECT_EQ(rowset->State(), adStateOpen + adStateFetching);
  ASSERT_TRUE(PumpUntil([&] { return rowset->State() == adStateOpen; }));
  EXPECT_EQ(rowset->RecordCount(), 50'000);
}

TEST_F(FetchTest, WaitingForTheRowsTakesThemAllAndTheEventsComeAfterwards) {
  FakeTable& table = books_->AddNumbers("t", 10'000);
  table.gate_at = 1;
  const RecordsetPtr rowset = Listening("rs");
  OpenBeside(*rowset, "t");
  ASSERT_TRUE(PumpUntilEvents(1));
  std::thread opening([&] {
    table.gate->WaitForArrival();
    table.gate->Open();
  });
  rowset->WaitForRows();
  opening.join();
  EXPECT_EQ(rowset->RecordCount(), 10'000);
  EXPECT_EQ(rowset->Collect("n").ToInt32(), 0) << "the position stays";
  EXPECT_EQ(rowset->State(), adStateOpen + adStateFetching);
  EXPECT_EQ(events_.size(), 1U);
  rowset->WaitForRows();  // there is nothing to wait for any more
  ASSERT_TRUE(PumpUntilEvents(5));
  EXPECT_EQ(events_,
            (Events{"rs progress 1/1", "rs progress 10000/10000", "rs progress 10000/10000",
                    "rs progress 10000/10000", "rs complete 1"}));
  rowset->MoveLast();
  EXPECT_EQ(rowset->Collect("t").ToText(), "row 9999");
}

TEST_F(FetchTest, WaitingForTheRowsOfAShapeCommandHasTheirChapters) {
  books_->AddNumbers("p", 3);
  books_->AddNumbers("c", 3);
  const RecordsetPtr rowset = Listening("rs");
  OpenBeside(*rowset, "shape {p} append ({c} relate n to n) as chp");
  rowset->WaitForRows();
  rowset->MoveLast();
  EXPECT_EQ(Dump(*rowset->Fields("chp").Value().ToRowset()), "n=2 t=row 2\n");
  ASSERT_TRUE(PumpUntilEvents(3));
  EXPECT_EQ(events_.back(), "rs complete 1");
}

TEST_F(FetchTest, WaitingForRowsThatFailRaisesTheErrorWhichTheEventTellsAsWell) {
  books_->AddNumbers("t", 10'000).fails_at = 5'000;
  const RecordsetPtr rowset = Listening("rs");
  OpenBeside(*rowset, "t");
  EXPECT_EQ(Thrown([&] { rowset->WaitForRows(); }), "-2147217900: row 5000 is damaged");
  EXPECT_EQ(rowset->RecordCount(), 4'097);
  ASSERT_TRUE(PumpUntilEvents(3));
  EXPECT_EQ(events_.back(), "rs complete 2 row 5000 is damaged");
}

TEST_F(FetchTest, WaitingEndsWhenTheConnectionIsCancelled) {
  FakeTable& table = books_->AddNumbers("t", 10);
  table.gate_at = 5;
  const RecordsetPtr rowset = Listening("rs");
  OpenBeside(*rowset, "t");
  table.gate->WaitForArrival();
  Books()->Cancel();
  EXPECT_NE(Thrown([&] { rowset->WaitForRows(); }), "nothing");
  ASSERT_TRUE(PumpUntil([&] { return rowset->State() == adStateOpen; }));
}

TEST_F(FetchTest, WithoutAFetchThereAreNoRowsToWaitFor) {
  books_->AddNumbers("t", 3);
  const RecordsetPtr rowset = Open("t");
  rowset->WaitForRows();
  EXPECT_EQ(rowset->RecordCount(), 3);
  rowset->Close();
  EXPECT_EQ(Thrown([&] { rowset->WaitForRows(); }), "3704: the rowset is not open");
}

TEST_F(FetchTest, WhatIsWrongWithTheTextIsRaisedAtOnce) {
  books_->AddNumbers("t", 3);
  const RecordsetPtr rowset = Listening("rs");
  EXPECT_EQ(Thrown([&] { OpenBeside(*rowset, "none"); }),
            "-2147217900: line 1, column 1: there is no table none");
  EXPECT_EQ(Thrown([&] { OpenBeside(*rowset, "shape {t} append ({t} relate n to m) as c"); }),
            "-2147217900: line 1, column 35: the chapter's query has no column m, only n, t");
  EXPECT_EQ(rowset->State(), adStateClosed);
  (void)WaitForEvents(milliseconds(20));
  EXPECT_EQ(events_, Events{});
  EXPECT_EQ(books_->snapshots_taken, 0);
}

TEST_F(FetchTest, WhatFailsLaterIsToldByTheEventAndTheRowsBeforeItStay) {
  books_->AddNumbers("t", 10'000).fails_at = 9'000;
  const RecordsetPtr rowset = Listening("rs");
  OpenBeside(*rowset, "t");
  ASSERT_TRUE(PumpUntilEvents(4));
  EXPECT_EQ(events_, (Events{"rs progress 1/1", "rs progress 4097/4097", "rs progress 8193/8193",
                             "rs complete 2 row 9000 is damaged"}));
  EXPECT_EQ(rowset->State(), adStateOpen);
  EXPECT_EQ(rowset->RecordCount(), 8'193);
}

TEST_F(FetchTest, AQueryThatTheEngineRefusesAtTheStartIsToldByTheEvent) {
  books_->AddNumbers("t", 3).run_error.emplace(ErrorNumber::kQueryRefused, "too many terms");
  const RecordsetPtr rowset = Listening("rs");
  OpenBeside(*rowset, "t");
  ASSERT_TRUE(PumpUntilEvents(1));
  EXPECT_EQ(events_, Events{"rs complete 2 too many terms"});
  EXPECT_EQ(rowset->RecordCount(), 0);
}

TEST_F(FetchTest, ALockOnTheBooksDoesNotHoldTheThread) {
  books_->AddNumbers("t", 3);
  books_->snapshot_gate = std::make_shared<Gate>();
  const RecordsetPtr rowset = Listening("rs");
  OpenBeside(*rowset, "t");
  books_->snapshot_gate->WaitForArrival();
  DoEvents();
  EXPECT_EQ(events_, Events{});
  books_->snapshot_gate->Open();
  ASSERT_TRUE(PumpUntilEvents(3));
  EXPECT_EQ(events_.back(), "rs complete 1");
}

TEST_F(FetchTest, ALockThatStaysIsAnErrorOfTheFetch) {
  books_->AddNumbers("t", 3);
  books_->snapshot_error.emplace(ErrorNumber::kQueryRefused, "the books are locked");
  const RecordsetPtr rowset = Listening("rs");
  OpenBeside(*rowset, "t");
  ASSERT_TRUE(PumpUntilEvents(1));
  EXPECT_EQ(events_, Events{"rs complete 2 the books are locked"});
}

TEST_F(FetchTest, SeveralRowsetsFetchAtTheSameTime) {
  // Each waits for the gate of the other's rows to be reached: one after the other would hang.
  FakeTable& one = books_->AddNumbers("one", 10);
  FakeTable& two = books_->AddNumbers("two", 10);
  one.gate_at = two.gate_at = 5;
  const RecordsetPtr rs1 = Listening("rs1");
  const RecordsetPtr rs2 = Listening("rs2");
  OpenBeside(*rs1, "one");
  OpenBeside(*rs2, "two");
  one.gate->WaitForArrival();
  two.gate->WaitForArrival();
  two.gate->Open();
  ASSERT_TRUE(PumpUntil([&] { return rs2->State() == adStateOpen; }));
  EXPECT_EQ(rs1->State(), adStateOpen + adStateFetching);
  one.gate->Open();
  ASSERT_TRUE(PumpUntilEvents(6));
  EXPECT_EQ(events_.back(), "rs1 complete 1");
}

TEST_F(FetchTest, AHostWithALoopOfItsOwnWaitsOnTheDescriptor) {
  books_->AddNumbers("t", 10'000);
  const RecordsetPtr rowset = Listening("rs");
  pollfd wanted{EventDescriptor(), POLLIN, 0};
  OpenBeside(*rowset, "t");
  while (rowset->State() != adStateOpen) {
    ASSERT_EQ(::poll(&wanted, 1, 10'000), 1);
    DoEvents();
  }
  EXPECT_EQ(rowset->RecordCount(), 10'000);
}

// --- Shape commands beside the thread

TEST_F(FetchTest, ParentsAreNeverSeenHalfJoined) {
  books_->AddNumbers("p", 6'000);
  FakeTable& children = books_->AddNumbers("c", 12'000);
  children.gate_at = 11'999;
  const RecordsetPtr rowset = Listening("rs");
  OpenBeside(*rowset, "shape {p} append ({c} relate n to n) as chp");
  EXPECT_EQ(ColumnsOf(*rowset), "n:3 t:200 chp:136");
  children.gate->WaitForArrival();
  (void)WaitForEvents(milliseconds(30));
  EXPECT_EQ(rowset->RecordCount(), 0);
  EXPECT_EQ(events_, Events{});
  const auto record = rowset->FetchProgress;
  rowset->FetchProgress = [&](std::int32_t progress, std::int32_t max_progress, int status,
                              Recordset& self) {
    record(progress, max_progress, status, self);
    EXPECT_EQ(self.RecordCount(), progress);
    self.MoveLast();
    EXPECT_EQ(self.Fields("chp").Value().ToRowset()->RecordCount(), 1);
  };
  children.gate->Open();
  ASSERT_TRUE(PumpUntilEvents(4));
  EXPECT_EQ(events_, (Events{"rs progress 1/1", "rs progress 4097/4097", "rs progress 6000/6000",
                             "rs complete 1"}));
  rowset->MoveLast();
  EXPECT_EQ(Dump(*rowset->Fields("chp").Value().ToRowset()), "n=5999 t=row 5999\n");
}

TEST_F(FetchTest, GroupsAreFetchedBesideTheThread) {
  books_->AddNumbers("t", 5'000);
  const RecordsetPtr rowset = Listening("rs");
  OpenBeside(*rowset, "shape {t} as c compute c by n");
  ASSERT_TRUE(PumpUntilEvents(4));
  EXPECT_EQ(events_, (Events{"rs progress 1/1", "rs progress 4097/4097", "rs progress 5000/5000",
                             "rs complete 1"}));
  rowset->Filter("n = 4321");
  EXPECT_EQ(Dump(*rowset), "n=4321\n  c: n=4321 t=row 4321\n");
}

TEST_F(FetchTest, AFailedChapterCompletesWithoutRowsAndNamesTheChapter) {
  books_->AddNumbers("p", 6'000);
  books_->AddNumbers("c", 12'000).fails_at = 11'000;
  const RecordsetPtr rowset = Listening("rs");
  OpenBeside(*rowset, "shape {p} append ({c} relate n to n) as chp");
  ASSERT_TRUE(PumpUntilEvents(1));
  EXPECT_EQ(events_, Events{"rs complete 2 while reading the query of chp: row 11000 is damaged"});
  EXPECT_EQ(rowset->RecordCount(), 0);
}

// --- One state of the books

class OneStateTest : public FetchTest {
 protected:
  OneStateTest() {
    FakeTable table;
    table.columns = {{"state", adInteger, 0, adFldIsNullable}};
    table.row_count = 5'000;
    table.cells = [](std::size_t, int state) { return std::vector<Variant>{state}; };
    books_->tables["t"] = std::move(table);
  }
  // The states in which the rows were read, which must be one.
  static int StateOf(Recordset& rowset) {
    const int state = rowset.Collect("state").ToInt32();
    rowset.Filter("state = " + std::to_string(state));
    EXPECT_EQ(rowset.RecordCount(), 5'000);
    return state;
  }
};

TEST_F(OneStateTest, QueriesOfOneScopeSeeOneStateAndOthersTheirOwn) {
  Books();
  {
    const Connection::OneState scope(connection_);
    EXPECT_EQ(StateOf(*Open("t")), 1);
    books_->state = 2;
    EXPECT_EQ(StateOf(*Open("t")), 1);
    {
      const Connection::OneState inner(connection_);
      EXPECT_EQ(StateOf(*Open("t")), 1);
    }
    EXPECT_EQ(StateOf(*Open("t")), 1);
    EXPECT_EQ(books_->live_snapshots, 1);
  }
  EXPECT_EQ(books_->live_snapshots, 0);
  EXPECT_EQ(StateOf(*Open("t")), 2);
  books_->state = 3;
  EXPECT_EQ(StateOf(*Open("t")), 3);
  EXPECT_EQ(books_->snapshots_taken, 3);
}

TEST_F(OneStateTest, FetchesHoldTheStateBeyondTheScopeAndNoLonger) {
  FakeTable& table = books_->tables["t"];
  table.gate_at = 3'000;
  const RecordsetPtr rs1 = Listening("rs1");
  const RecordsetPtr rs2 = Listening("rs2");
  {
    const Connection::OneState scope(connection_);
    OpenBeside(*rs1, "t");
    table.gate->WaitForArrival();
    books_->state = 2;
    OpenBeside(*rs2, "t");
  }
  (void)WaitForEvents(milliseconds(20));
  EXPECT_EQ(books_->live_snapshots, 1);
  table.gate->Open();
  rs1->FetchComplete = rs2->FetchComplete = [&](const Error* error, int, Recordset&) {
    EXPECT_EQ(error, nullptr);
    events_.emplace_back("complete");
    if (rs1->State() + rs2->State() == 2 * adStateOpen) {
      EXPECT_EQ(books_->live_snapshots, 0);
    }
  };
  ASSERT_TRUE(PumpUntil([&] { return rs1->State() + rs2->State() == 2 * adStateOpen; }));
  EXPECT_EQ(StateOf(*rs1), 1);
  EXPECT_EQ(StateOf(*rs2), 1);
  EXPECT_EQ(books_->snapshots_taken, 1);
}

TEST_F(OneStateTest, ALockFailsAllFetchesOfAScopeAfterOneWait) {
  books_->snapshot_error.emplace(ErrorNumber::kQueryRefused, "the books are locked");
  books_->snapshot_gate = std::make_shared<Gate>();
  const RecordsetPtr rs1 = Listening("rs1");
  const RecordsetPtr rs2 = Listening("rs2");
  const Connection::OneState scope(Books());
  OpenBeside(*rs1, "t");
  OpenBeside(*rs2, "t");
  books_->snapshot_gate->Open();
  ASSERT_TRUE(PumpUntilEvents(2));
  std::sort(events_.begin(), events_.end());
  EXPECT_EQ(events_,
            (Events{"rs1 complete 2 the books are locked", "rs2 complete 2 the books are locked"}));
  EXPECT_EQ(books_->snapshots_asked, 1);
  books_->snapshot_error.reset();
  EXPECT_EQ(StateOf(*Open("t")), 1) << "what is opened behind the failure tries again";
}

TEST_F(OneStateTest, AShapeCommandReadsAllItsQueriesInOneState) {
  books_->AddNumbers("one", 1);
  books_->tables["one"].cells = [this](std::size_t, int) {
    books_->state = 2;  // another program writes while the first query is read
    return std::vector<Variant>{1, "x"};
  };
  const RecordsetPtr rowset = Open("shape {one} append ({t} relate n to state) as chp");
  EXPECT_EQ(rowset->Fields("chp").Value().ToRowset()->RecordCount(), 5'000);
}

}  // namespace
}  // namespace pstolvane1
