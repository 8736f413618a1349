// The launch patterns on reports of their own: what is opened, in which order, and who goes on.
#include <functional>
#include <thread>
#include <utility>

#include "SessionHarness.h"
#include "session/Launch.h"
#include "session/ReportFrame.h"
#include "session/RowLoop.h"

namespace pstolvane1 {
namespace {

FakeTable Numbers(std::int32_t count) {
  FakeTable table{.columns = {{.name = "n", .type = adInteger}}};
  for (std::int32_t n = 1; n <= count; ++n) table.rows.push_back({n});
  return table;
}

std::string RowsOf(const Recordset& rowset) {
  return rowset.State() == adStateClosed ? "closed" : std::to_string(rowset.RecordCount());
}

RecordsetPtr g_sizes;

// The sizes of rsReport and Rs1 as the builder finds them, in a rowset of its own.
RecordsetPtr BuildSizes(ReportFrame& frame) {
  g_sizes = Recordset::New();
  g_sizes->Fields().Append("rsReport", adBSTR);
  g_sizes->Fields().Append("Rs1", adBSTR);
  g_sizes->Open();
  g_sizes->AddNew();
  g_sizes->Collect("rsReport", RowsOf(*frame.Rowset(Source::rsReport)));
  g_sizes->Collect("Rs1", RowsOf(*frame.Rowset(Source::Rs1)));
  g_sizes->AddNew();
  g_sizes->Update();
  g_sizes->MoveFirst();
  ++frame.module.lngRecordNo;
  return g_sizes;
}

RecordsetPtr BuildSize(ReportFrame& frame) {
  frame.Replace(Source::Rs1)->Fields().Append("n", adInteger);
  return BuildSizes(frame);
}

std::function<void()> g_in_first_row;  // of the outer walk
std::vector<std::string> g_walks;

// Walks over rsReport as row builders do, and writes down which rows it met.
RecordsetPtr Walk(ReportFrame& frame) {
  const RecordsetPtr source = frame.Rowset(Source::rsReport)->Clone(adLockUnspecified);
  std::string met;
  ForEachSourceRow(frame, *source, [&](const Recordset::Row& row) {
    met += row["n"].ToText();
    if (const auto once = std::exchange(g_in_first_row, nullptr)) once();
  });
  g_walks.push_back(met);
  return source;
}

constexpr ReportRow kReports[] = {
    Row(rtCommission_Daily, 1, &Walk),
    Row(rtColorwise_Monthly, 2, &BuildSizes),
    {.first = rtCategorywise_Initial,
     .last = rtCategorywise_Initial,
     .awaits = 1,
     .builder = &BuildSize,
     .opening = Opening::kOpenAndSignal},
    {.first = rtMechanicLabourReport,
     .last = rtMechanicLabourReport,
     .awaits = 2,
     .builder = &BuildSize,
     .preloaded_fetches = 1},
    {.first = rtMultiplePriceList,
     .last = rtMultiplePriceList,
     .awaits = 0,
     .builder = &BuildSize,
     .delivery = Delivery::kAsBuilt,
     .opening = Opening::kFetchUnprepared},
    {.first = rtAutoSearchReceiptChild,
     .last = rtAutoSearchReceiptChild,
     .awaits = 1,
     .builder = &BuildSize,
     .delivery = Delivery::kNever},
};

const SourceQuery kReportQuery = {Source::rsReport, "select n from first"};
const SourceQuery kRs1Query = {Source::Rs1, "select n from second"};

class LaunchTest : public testing::Test {
 protected:
  LaunchTest() {
    *modStolvane1::OfThisThread() = modStolvane1();
    g_sizes = nullptr;
    LogEvents(host, events);
    const auto logging = host.FetchComplete;
    host.FetchComplete = [this, logging](const RecordsetPtr& rowset, std::int32_t any_count) {
      logging(rowset, any_count);
      delivered = rowset;
    };
    books->Answer("from first", Numbers(3));
    books->Answer("from second", Numbers(5));
    frame = std::make_shared<ReportFrame>(kReports, books->Maker(), host);
    frame->SetConnection("", "books", False, {}, {}, "", "");
    events.clear();
  }
  ~LaunchTest() override {
    frame->Class_Terminate();
    g_sizes = nullptr;
  }

  RecordsetPtr LaunchTwo(Boolean blnReport) {
    return Launch(*frame, rtColorwise_Monthly, blnReport, {kReportQuery, kRs1Query});
  }
  RecordsetPtr LaunchOne(ReportType type, Boolean blnReport) {
    return Launch(*frame, type, blnReport, {kReportQuery});
  }
  void Hold(const std::string& query, FakeTable table) {
    table.held = true;
    books->Answer(query, std::move(table));
  }
  static std::string Sizes(Recordset& report) {
    return report.Collect("rsReport").ToText() + " " + report.Collect("Rs1").ToText();
  }

  clsStolvane1Events host;
  EventLog events;
  RecordsetPtr delivered;
  std::shared_ptr<FakeBooks> books = std::make_shared<FakeBooks>();
  std::shared_ptr<ReportFrame> frame;
  modStolvane1& module = *modStolvane1::OfThisThread();
};

TEST_F(LaunchTest, SynchronousItOpensInOrderAndReturnsACloneOfWhatWasBuilt) {
  const RecordsetPtr report = LaunchTwo(True);
  ASSERT_NE(report, nullptr);
  EXPECT_EQ(Sizes(*report), "3 5");
  EXPECT_EQ(books->Queries(), (std::vector<std::string>{std::string(kReportQuery.text),
                                                        std::string(kRs1Query.text)}));
  EXPECT_NE(report, g_sizes);
  report->MoveLast();
  EXPECT_EQ(g_sizes->Collect("Rs1"), Variant("5")) << "moving the clone moved the builder's rowset";
  EXPECT_EQ(books->Snapshots(), 1) << "the queries of a report read one state";
  EXPECT_EQ(events, EventLog{});
  EXPECT_EQ(module.bytFetchesDone, 0);
  EXPECT_EQ(frame->progress.sngFetchCeiling, 20.0F);
  EXPECT_EQ(frame->progress.sngFetchPercent, 0.0F) << "\"Manipulating\" was raised";
}

TEST_F(LaunchTest, AsynchronousItReturnsNothingAndBuildsWhenTheLastFetchIsComplete) {
  Hold("from second", Numbers(5));
  EXPECT_EQ(LaunchTwo(False), nullptr);
  PumpUntil([&] { return module.bytFetchesDone == 1; });
  EXPECT_TRUE(frame->Fetching());
  EXPECT_EQ(g_sizes, nullptr);
  EXPECT_EQ(events, EventLog{"20 FetchingData"});
  books->Release();
  PumpUntil([&] { return delivered != nullptr; });
  EXPECT_FALSE(frame->Fetching());
  EXPECT_EQ(Sizes(*delivered), "3 5");
  EXPECT_NE(delivered, g_sizes);
  delivered->MoveLast();
  EXPECT_EQ(g_sizes->Collect("Rs1"), Variant("5")) << "moving the clone moved the builder's rowset";
  EXPECT_EQ(module.bytFetchesDone, 0);
  EXPECT_EQ(books->Snapshots(), 1) << "the queries of a report read one state";
}

TEST_F(LaunchTest, EveryRowsetHasItsConnectionAndFetchSizeBeforeTheFirstOpen) {
  FakeTable refused;
  refused.refusal = Error(ErrorNumber::kQueryRefused, "no such table");
  books->Answer("from first", refused);
  EXPECT_THROW((void)LaunchTwo(False), Error);
  const RecordsetPtr second = frame->Rowset(Source::Rs1);
  EXPECT_EQ(second->State(), adStateClosed);
  EXPECT_EQ(second->ActiveConnection(), frame->MainCn);
  EXPECT_EQ(second->Properties()("Initial Fetch Size").Value(), Variant(1));
}

TEST_F(LaunchTest, ThePatternWithoutPreparationLeavesTheFetchSizeAndDeliversWhatWasBuilt) {
  EXPECT_EQ(LaunchOne(rtMultiplePriceList, False), nullptr);
  EXPECT_EQ(frame->Rowset(Source::rsReport)->Properties()("Initial Fetch Size").Value(),
            Recordset::New()->Properties()("Initial Fetch Size").Value());
  PumpUntil([&] { return delivered != nullptr; });
  EXPECT_EQ(delivered, g_sizes);
  EXPECT_EQ(LaunchOne(rtMultiplePriceList, True), g_sizes);
}

TEST_F(LaunchTest, OpenAndSignalCompletesBeforeTheCallReturns) {
  EXPECT_EQ(LaunchOne(rtCategorywise_Initial, False), nullptr);
  ASSERT_NE(delivered, nullptr);
  EXPECT_EQ(Sizes(*delivered), "3 closed");
  EXPECT_EQ(events, (EventLog{"1 Manipulating", "FetchComplete 0"}));
  EXPECT_EQ(module.bytFetchesDone, 0);
}

TEST_F(LaunchTest, OpenAndSignalAskedForSynchronouslyIsALaunchLikeAnyOther) {
  const RecordsetPtr report = LaunchOne(rtCategorywise_Initial, True);
  EXPECT_EQ(Sizes(*report), "3 closed");
  EXPECT_EQ(events, EventLog{});
}

TEST_F(LaunchTest, OpenAndSignalThatIsRefusedSignalsNothing) {
  books->Answer("from first", {.refusal = Error(ErrorNumber::kQueryRefused, "no such table")});
  EXPECT_THROW((void)LaunchOne(rtCategorywise_Initial, False), Error);
  EXPECT_EQ(events, EventLog{});
  EXPECT_EQ(module.bytFetchesDone, 0);
}

TEST_F(LaunchTest, APreloadedCountLetsOneFetchSatisfyARowThatAwaitsTwo) {
  EXPECT_EQ(LaunchOne(rtMechanicLabourReport, False), nullptr);
  EXPECT_EQ(module.bytFetchesDone, 1);
  PumpUntil([&] { return delivered != nullptr; });
  EXPECT_EQ(Sizes(*delivered), "3 closed");
  EXPECT_EQ(module.bytFetchesDone, 0);
}

TEST_F(LaunchTest, APreloadedCountReplacesWhatWasLeftOver) {
  module.bytFetchesDone = 7;
  EXPECT_EQ(LaunchOne(rtMechanicLabourReport, False), nullptr);
  EXPECT_EQ(module.bytFetchesDone, 1);
}

TEST_F(LaunchTest, ASynchronousCallLeavesTheFetchCountAlone) {
  module.bytFetchesDone = 7;
  EXPECT_NE(LaunchOne(rtMechanicLabourReport, True), nullptr);
  EXPECT_NE(LaunchTwo(True), nullptr);
  EXPECT_EQ(module.bytFetchesDone, 7);
}

TEST_F(LaunchTest, ARefusedOpenLeavesTheFetchCountAsItIs) {
  books->Answer("from first", {.refusal = Error(ErrorNumber::kQueryRefused, "no such table")});
  module.bytFetchesDone = 3;
  EXPECT_THROW((void)LaunchTwo(False), Error);
  EXPECT_EQ(module.bytFetchesDone, 3);
  EXPECT_EQ(events, EventLog{});
}

TEST_F(LaunchTest, AnotherNumberOfQueriesThanTheRowAwaitsIsAnErrorBeforeAnythingIsOpened) {
  for (const Boolean mode : {True, False}) {
    for (const SourceQueries& queries : {SourceQueries{kReportQuery}, SourceQueries{}}) {
      try {
        (void)Launch(*frame, rtColorwise_Monthly, mode, queries);
        FAIL() << "no error";
      } catch (const Error& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::kArgumentOutOfRange);
      }
    }
    EXPECT_THROW((void)Launch(*frame, rtCommission_Daily, mode, {kReportQuery, kRs1Query}), Error);
    EXPECT_THROW((void)Launch(*frame, rtMultiplePriceList, mode, {kReportQuery, kRs1Query}), Error);
  }
  EXPECT_EQ(books->Queries(), std::vector<std::string>{});
  EXPECT_EQ(module.bytFetchesDone, 0);
  EXPECT_NE(frame->lngReportType, rtColorwise_Monthly);
}

TEST_F(LaunchTest, TheTextsAreBroughtIntoTheDialectAndKept) {
  frame->Aliases.taItem = "items1.code";
  books->Answer("select", Numbers(1));
  (void)Launch(*frame, rtColorwise_Monthly, True,
               {{Source::rsReport,
                 "SELECT Items1.ItemName AS n , #1# , Items1.Group_id FROM A",
                 {"items1.group_id", "b"}},
                {Source::Rs1, "SELECT n FROM Second"}});
  EXPECT_EQ(module.strSQL, "select items1.code as n , '1' , b from a");
  EXPECT_EQ(module.strSQL2, "select n from second");
  EXPECT_EQ(books->Queries(), (std::vector<std::string>{module.strSQL, module.strSQL2}));
}

TEST_F(LaunchTest, AReportThatIsNeverDispatchedIsReturnedAndNeverDelivered) {
  EXPECT_EQ(Sizes(*LaunchOne(rtAutoSearchReceiptChild, True)), "3 closed");
  EXPECT_EQ(LaunchOne(rtAutoSearchReceiptChild, False), nullptr);
  PumpUntil([&] { return !frame->Fetching(); });
  EXPECT_EQ(delivered, nullptr);
  EXPECT_EQ(module.bytFetchesDone, 1);
}

TEST_F(LaunchTest, AFetchBesideARefusedOpenIsLeftOverForTheNextReport) {
  books->Answer("from second", {.refusal = Error(ErrorNumber::kQueryRefused, "no such table")});
  EXPECT_THROW((void)LaunchTwo(False), Error);
  PumpUntil([&] { return !frame->Fetching(); });
  EXPECT_EQ(module.bytFetchesDone, 1);
  EXPECT_EQ(delivered, nullptr);
  // The next one goes on at its first fetch, and its builder waits for the rows that still come.
  Hold("from second", Numbers(5));
  EXPECT_EQ(LaunchTwo(False), nullptr);
  std::thread releasing([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    books->Release();
  });
  PumpUntil([&] { return delivered != nullptr; });
  releasing.join();
  EXPECT_EQ(Sizes(*delivered), "3 5");
  PumpUntil([&] { return !frame->Fetching(); });
  EXPECT_EQ(module.bytFetchesDone, 1);
  EXPECT_EQ(std::count(events.begin(), events.end(), "FetchComplete 0"), 1);
}

TEST_F(LaunchTest, AFetchThatIsLeftOverDoesNotShortenAReportWhoseLinesAreWritten) {
  Hold("from second", Numbers(5));
  EXPECT_EQ(LaunchTwo(False), nullptr);
  PumpUntil([&] { return module.bytFetchesDone == 1; });
  g_walks.clear();
  g_in_first_row = [this] {
    books->Release();
    std::this_thread::sleep_for(std::chrono::milliseconds(50));  // its end is told in the yield
  };
  const RecordsetPtr report = LaunchOne(rtCommission_Daily, True);
  EXPECT_NE(report, nullptr);
  // It sets the builder off a second time, on the same rowset, while the first one is at work.
  EXPECT_EQ(g_walks, (std::vector<std::string>{"123", "123"}));
  EXPECT_NE(delivered, nullptr);
  EXPECT_EQ(module.bytFetchesDone, 0);
}

TEST_F(LaunchTest, OfSeveralFetchesOneThatFailsCountsAndItsErrorEndsTheBuilding) {
  FakeTable failing = Numbers(2);
  failing.failure = Error(ErrorNumber::kDivisionByZero, "division by zero");
  books->Answer("from second", std::move(failing));
  EXPECT_EQ(LaunchTwo(False), nullptr);
  std::optional<Error> told;
  for (int round = 0; round < 500 && !told; ++round) {
    try {
      (void)WaitForEvents(std::chrono::milliseconds(20));
    } catch (const Error& error) {
      told = error;
    }
  }
  ASSERT_TRUE(told);
  EXPECT_EQ(told->Number(), ErrorNumber::kDivisionByZero);
  EXPECT_EQ(module.bytFetchesDone, 0);
  EXPECT_EQ(delivered, nullptr);
}

TEST_F(LaunchTest, ReportsThatCompleteInAnyOrderAreOne) {
  Hold("from first", Numbers(3));
  EXPECT_EQ(LaunchTwo(False), nullptr);
  PumpUntil([&] { return module.bytFetchesDone == 1; });
  EXPECT_EQ(RowsOf(*frame->Rowset(Source::Rs1)), "5");
  books->Release();
  PumpUntil([&] { return delivered != nullptr; });
  EXPECT_EQ(Sizes(*delivered), "3 5");
}

TEST_F(LaunchTest, RowsetsThatTheHostHandsOverAreNotFetched) {
  const RecordsetPtr items = Recordset::New();
  items->Fields().Append("Item_id", adInteger);
  items->Open();
  frame->UseHostItems(items);
  EXPECT_EQ(LaunchTwo(False), nullptr);
  PumpUntil([&] { return delivered != nullptr; });
  EXPECT_EQ(frame->Rowset(Source::rsItems), items);
  EXPECT_FALSE(frame->Seen(Source::rsItems));
}

TEST_F(LaunchTest, WithoutAConnectionEveryPatternRaisesThatItIsMissing) {
  frame->MainCn = nullptr;
  for (const ReportType type : {rtCommission_Daily, rtCategorywise_Initial, rtMultiplePriceList}) {
    for (const Boolean mode : {True, False}) {
      try {
        (void)LaunchOne(type, mode);
        FAIL() << "no error";
      } catch (const Error& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::kNoConnection);
      }
    }
  }
}

TEST_F(LaunchTest, APlainQueryIsDisconnectedAndLeavesTheReportInHandAlone) {
  Hold("from first", Numbers(3));
  Hold("from second", Numbers(5));
  books->Answer("from third", Numbers(2));
  EXPECT_EQ(LaunchTwo(False), nullptr);
  const RecordsetPtr plain = OpenPlain(*frame, "select n from third");
  EXPECT_EQ(plain->RecordCount(), 2);
  EXPECT_EQ(plain->ActiveConnection(), nullptr);
  EXPECT_EQ(frame->lngReportType, rtColorwise_Monthly);
  EXPECT_EQ(events, EventLog{});
  books->Release();
  PumpUntil([&] { return delivered != nullptr; });
  EXPECT_EQ(Sizes(*delivered), "3 5");
}

}  // namespace
}  // namespace pstolvane1
