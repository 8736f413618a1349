// The dispatcher without a connection: fetches are told to it by hand.
#include <gtest/gtest.h>
#include <limits>
#include <map>
#include <set>

#include "SessionHarness.h"
#include "session/ReportFrame.h"
#include "session/ReportTable.h"
#include "session/data/Provider.h"

namespace pstolvane1 {
namespace {

RecordsetPtr OneCell(std::int32_t number) {
  const RecordsetPtr rowset = Recordset::New();
  rowset->Fields().Append("Number", adInteger);
  rowset->Open();
  rowset->AddNew();
  rowset->Collect("Number", number);
  rowset->Update();
  return rowset;
}

// Counts seven lines and hands a rowset over.
RecordsetPtr SevenLines(ReportFrame& frame) {
  frame.module.lngRecordNo += 7;
  return OneCell(7);
}

struct Expected {
  int awaits;
  std::string any_count;  // "" delivers nothing; "12" counts on from 5, "7" begins at 0
};

// What each value awaits and counts, told once more by number.
std::map<std::int32_t, Expected> ExpectedByValue() {
  std::map<std::int32_t, Expected> all;
  const auto add = [&all](std::int32_t first, std::int32_t last, int awaits,
                          const std::string& any_count) {
    for (std::int32_t value = first; value <= last; ++value) all[value] = {awaits, any_count};
  };
  add(1, 2, 1, "12");
  add(3, 4, 1, "0");
  add(5, 7, 1, "12");
  add(8, 29, 1, "0");
  add(30, 31, 2, "0");
  add(35, 35, 1, "0");
  add(101, 105, 4, "0");
  add(111, 120, 1, "0");
  add(121, 140, 4, "0");
  add(141, 143, 2, "0");
  add(200, 200, 1, "0");
  add(201, 201, 1, "1");
  add(202, 202, 0, "3");
  for (const std::int32_t value : {203, 204, 205, 207, 209, 210, 211, 214, 215}) {
    add(value, value, 0, "0");
  }
  add(212, 212, 1, "7");
  add(213, 213, 2, "0");
  add(216, 219, 0, "7");
  add(25001, 25002, 1, "0");
  add(110001, 110001, 2, "0");
  add(110002, 110004, 3, "0");
  add(110005, 110008, 2, "0");
  add(110009, 110009, 3, "0");
  add(110010, 110012, 4, "0");
  add(110013, 110013, 3, "0");
  add(110014, 110016, 4, "0");
  for (const std::int32_t first : {110018, 110022, 110026}) add(first, first + 2, 3, "");
  add(110029, 110029, 3, "0");
  add(110030, 110032, 4, "0");
  add(110033, 110033, 3, "0");
  add(110034, 110036, 4, "0");
  add(110037, 110037, 2, "0");
  add(110038, 110039, 3, "0");
  return all;
}

std::set<std::int32_t> NamedValues() {
  std::set<std::int32_t> values;
  for (const EnumName& name : kReportTypeNames) values.insert(name.value);
  return values;
}

const std::set<std::int32_t> kWithoutRow = {206, 208, 508, 509,   512,    513,    514,
                                            515, 516, 517, 25000, 110017, 110021, 110025};

class DispatchTest : public testing::Test {
 protected:
  DispatchTest() {
    *modStolvane1::OfThisThread() = modStolvane1();
    LogEvents(host, events);
  }
  std::shared_ptr<ReportFrame> Frame(std::span<const ReportRow> rows) {
    return std::make_shared<ReportFrame>(rows, nullptr, host);
  }

  clsStolvane1Events host;
  EventLog events;
  modStolvane1& module = *modStolvane1::OfThisThread();
};

TEST(ReportTypes, AreHundredAndFortyNamesOfAsManyValues) {
  EXPECT_EQ(std::size(kReportTypeNames), 140U);
  EXPECT_EQ(NamedValues().size(), 140U);
  EXPECT_EQ(rtStockDetails_Itemwise_WithFifoLifo, 110005);
  EXPECT_EQ(ReportTypeText(8), "rtDoc_Initial");
  EXPECT_EQ(ReportTypeText(36), "36");
}

TEST(ReportTypes, EachHasOneRowOrIsKnownToHaveNone) {
  const std::map<std::int32_t, Expected> expected = ExpectedByValue();
  std::set<std::int32_t> covered;
  for (const ReportRow& row : AllReports()) {
    if (row.delivery == Delivery::kNever) continue;
    for (std::int32_t value = row.first; value <= row.last; ++value) {
      EXPECT_TRUE(covered.insert(value).second) << value << " has two rows";
    }
  }
  for (const std::int32_t value : NamedValues()) {
    EXPECT_NE(covered.contains(value), kWithoutRow.contains(value)) << ReportTypeText(value);
    EXPECT_EQ(covered.contains(value), expected.contains(value)) << ReportTypeText(value);
  }
  for (const std::int32_t value : covered) EXPECT_TRUE(NamedValues().contains(value)) << value;
}

TEST_F(DispatchTest, EveryReportTypeAwaitsItsFetchesAndDeliversItsCount) {
  std::vector<ReportRow> rows(AllReports().begin(), AllReports().end());
  for (ReportRow& row : rows) row.builder = &SevenLines;
  for (const auto& [value, expected] : ExpectedByValue()) {
    SCOPED_TRACE(ReportTypeText(value));
    const auto frame = Frame(rows);
    frame->lngReportType = value;
    module.bytFetchesDone = 0;
    module.lngRecordNo = 5;
    const int needed = std::max(1, expected.awaits);
    for (int fetch = 1; fetch <= needed; ++fetch) {
      events.clear();
      frame->SourceFetchComplete();
      if (fetch < needed) {
        EXPECT_EQ(events, EventLog{});
      }
    }
    EventLog told = {"1 Manipulating"};
    if (!expected.any_count.empty()) told.push_back("FetchComplete " + expected.any_count);
    EXPECT_EQ(events, told);
    EXPECT_EQ(module.bytFetchesDone, 0);
    EXPECT_EQ(frame->progress.sngFetchCeiling, 20.0F);
  }
}

TEST_F(DispatchTest, ValuesWithoutARowAreAcceptedAndNothingFollows) {
  for (const std::int32_t value : kWithoutRow) {
    const auto frame = Frame(AllReports());
    frame->lngReportType = value;
    module.bytFetchesDone = 0;
    frame->SourceFetchComplete();
    EXPECT_EQ(events, EventLog{}) << ReportTypeText(value);
    EXPECT_EQ(module.bytFetchesDone, 1);
  }
}

TEST_F(DispatchTest, AReportThatIsNotBuiltSaysSo) {
  static constexpr ReportRow kWithoutBuilder[] = {Row(rtClaimReport, 0)};
  const auto frame = Frame(kWithoutBuilder);
  frame->lngReportType = rtClaimReport;
  try {
    frame->SourceFetchComplete();
    FAIL() << "no error";
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::kObjectNotSet);
    EXPECT_EQ(error.Description(), "rtClaimReport has no row builder in this version");
  }
}

TEST_F(DispatchTest, SearchesDeliverACloneOfTheirSourceRowset) {
  const std::map<ReportType, Source> searches = {{rtAutoSearch, Source::Rs1},
                                                 {rtAutoSearchReceipt, Source::Rs1},
                                                 {rtRtoInsSearch, Source::Rs1},
                                                 {rtRtosalesdet, Source::rsReport}};
  for (const auto& [type, source] : searches) {
    const auto frame = Frame(AllReports());
    frame->lngReportType = type;
    const RecordsetPtr found = frame->Replace(source);
    const std::shared_ptr<Connection> connection =
        Connection::New([](const auto&, auto) { return std::shared_ptr<Provider>(); });
    found->ActiveConnection(connection);
    found->Fields().Append("A", adInteger);
    found->Open();
    found->AddNew();
    found->Collect("A", 1);
    found->AddNew();
    found->Collect("A", 2);
    found->Update();
    found->MoveFirst();
    RecordsetPtr delivered;
    host.FetchComplete = [&](const RecordsetPtr& rowset, std::int32_t) { delivered = rowset; };
    frame->SourceFetchComplete();
    ASSERT_NE(delivered, nullptr) << ReportTypeText(type);
    EXPECT_NE(delivered, found);
    EXPECT_EQ(delivered->RecordCount(), 2);
    delivered->MoveLast();
    EXPECT_EQ(found->Collect("A"), Variant(1)) << "moving the clone moved the source";
    const auto kept = type == rtRtoInsSearch ? nullptr : connection;
    EXPECT_EQ(found->ActiveConnection(), kept) << ReportTypeText(type);
    EXPECT_EQ(delivered->ActiveConnection(), kept) << ReportTypeText(type);
  }
}

constexpr ReportRow kTwoFetches[] = {Row(rtColorwise_Monthly, 2, &SevenLines),
                                     Row(rtDoc_Initial, 1, &SevenLines)};

TEST_F(DispatchTest, AFetchThatIsLeftOverCountsForTheNextReport) {
  const auto frame = Frame(kTwoFetches);
  frame->lngReportType = rtColorwise_Monthly;
  frame->SourceFetchComplete();
  EXPECT_EQ(module.bytFetchesDone, 1);
  // The next report of that kind needs only one more.
  frame->SourceFetchComplete();
  EXPECT_EQ(events.back(), "FetchComplete 0");
  EXPECT_EQ(module.bytFetchesDone, 0);
}

RecordsetPtr g_built;
RecordsetPtr KeepBuilt(ReportFrame& /*frame*/) {
  g_built = OneCell(7);
  return g_built;
}

TEST_F(DispatchTest, EveryReportIsDeliveredAsACloneButThePriceListAsBuilt) {
  std::vector<ReportRow> rows(AllReports().begin(), AllReports().end());
  for (ReportRow& row : rows) row.builder = &KeepBuilt;
  RecordsetPtr delivered;
  host.FetchComplete = [&](const RecordsetPtr& rowset, std::int32_t) { delivered = rowset; };
  for (const auto& [value, expected] : ExpectedByValue()) {
    if (expected.any_count.empty()) continue;
    const auto frame = Frame(rows);
    frame->lngReportType = value;
    module.bytFetchesDone = 3;
    frame->SourceFetchComplete();
    ASSERT_NE(delivered, nullptr) << ReportTypeText(value);
    EXPECT_EQ(delivered == g_built, value == rtMultiplePriceList) << ReportTypeText(value);
    EXPECT_EQ(delivered->Collect("Number"), Variant(7));
  }
  g_built = nullptr;
}

TEST_F(DispatchTest, EveryFetchThatDoesNotDispatchBringsTheCeilingDown) {
  const auto frame = Frame(kTwoFetches);
  for (const std::int32_t type : {std::int32_t{rtColorwise_Monthly}, std::int32_t{rtBuyerReport}}) {
    frame->lngReportType = type;
    frame->progress.sngFetchCeiling = 60;
    module.bytFetchesDone = 0;
    frame->SourceFetchComplete();
    EXPECT_EQ(frame->progress.sngFetchCeiling, 20.0F) << type;
    EXPECT_EQ(module.bytFetchesDone, 1) << type;
  }
  EXPECT_EQ(events, EventLog{});
}

TEST_F(DispatchTest, ARowThatDeliversNothingStillTellsManipulatingAndClearsTheCount) {
  const auto frame = Frame(AllReports());
  frame->lngReportType = rtStockDetails_Categorywise_WithAvg_Yearly;
  module.bytFetchesDone = 2;
  frame->SourceFetchComplete();
  EXPECT_EQ(events, (EventLog{"1 Manipulating"}));
  EXPECT_EQ(module.bytFetchesDone, 0);
  EXPECT_EQ(frame->progress.sngFetchCeiling, 20.0F);
}

TEST_F(DispatchTest, AFetchOfZeroRowsExpectedIsAStepOfOne) {
  const auto frame = Frame(kTwoFetches);
  frame->SourceFetchProgress(Source::rsItems, 0, 0);
  frame->SourceFetchProgress(Source::RsCategory, 0, 0);
  EXPECT_EQ(events, (EventLog{"1 FetchingData", "2 FetchingData"}));
  EXPECT_EQ(frame->lngFetchTotal, 0);
  EXPECT_TRUE(frame->Seen(Source::rsItems));
  EXPECT_TRUE(frame->Seen(Source::RsCategory));
  EXPECT_EQ(frame->lngRs1Fetches, 0);
}

TEST_F(DispatchTest, Rs1IsCountedOncePerReport) {
  const auto frame = Frame(kTwoFetches);
  frame->SourceFetchProgress(Source::Rs1, 1, 10);
  frame->SourceFetchProgress(Source::Rs1, 2, 10);
  frame->BeginManipulating();
  frame->SourceFetchProgress(Source::Rs1, 1, 10);
  EXPECT_EQ(frame->lngRs1Fetches, 2);
}

TEST_F(DispatchTest, TheFetchCountIsSharedByTheSessionsOfAThread) {
  const auto first = Frame(kTwoFetches);
  const auto second = Frame(kTwoFetches);
  first->lngReportType = rtColorwise_Monthly;
  second->lngReportType = rtColorwise_Monthly;
  first->SourceFetchComplete();
  second->SourceFetchComplete();
  EXPECT_EQ(events.back(), "FetchComplete 0");
}

TEST_F(DispatchTest, FirstProgressOfEachSourceAddsItsRowsToTheTotal) {
  const auto frame = Frame(kTwoFetches);
  frame->SourceFetchProgress(Source::rsReport, 1, 40);
  frame->SourceFetchProgress(Source::rsReport, 2, 50);
  frame->SourceFetchProgress(Source::Rs1, 1, 60);
  frame->SourceFetchProgress(Source::Rs1, 2, 60);
  EXPECT_EQ(frame->lngFetchTotal, 100);
  EXPECT_EQ(frame->lngRs1Fetches, 1);
  EXPECT_TRUE(frame->Seen(Source::rsReport));
  EXPECT_TRUE(frame->Seen(Source::Rs1));
  EXPECT_FALSE(frame->Seen(Source::Rs2));
  // 20/40 + 20/50 + 20/60 + 20/60 = 1.57
  EXPECT_EQ(events, (EventLog{"0 FetchingData", "1 FetchingData", "2 FetchingData"}));
}

TEST_F(DispatchTest, ASourceThatEndsWithoutProgressIsNotSeenAndStillCounts) {
  const auto frame = Frame(kTwoFetches);
  frame->lngReportType = rtColorwise_Monthly;
  frame->SourceFetchProgress(Source::Rs1, 1, 1);
  frame->SourceFetchComplete();
  EXPECT_FALSE(frame->Seen(Source::Rs2));
  frame->SourceFetchComplete();
  EXPECT_EQ(events, (EventLog{"20 FetchingData", "20 Manipulating", "FetchComplete 0"}));
}

TEST_F(DispatchTest, ManipulatingForgetsTheFetchAndRaisesTheCeiling) {
  const auto frame = Frame(kTwoFetches);
  frame->SourceFetchProgress(Source::Rs2, 1, 10);
  frame->BeginManipulating();
  EXPECT_EQ(frame->lngFetchTotal, 0);
  EXPECT_FALSE(frame->Seen(Source::Rs2));
  EXPECT_EQ(frame->progress.sngFetchCeiling, 60.0F);
  EXPECT_EQ(events, (EventLog{"2 FetchingData", "3 Manipulating"}));
}

TEST_F(DispatchTest, MoreRowsThanAWholeNumberHoldsIsAnOverflow) {
  const auto frame = Frame(kTwoFetches);
  frame->SourceFetchProgress(Source::rsReport, 1, std::numeric_limits<std::int32_t>::max());
  try {
    frame->SourceFetchProgress(Source::Rs1, 1, 1);
    FAIL() << "no error";
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::kOverflow);
  }
  EXPECT_EQ(frame->lngFetchTotal, std::numeric_limits<std::int32_t>::max());
}

TEST_F(DispatchTest, MoreFetchesThanAByteHoldsIsAnOverflow) {
  const auto frame = Frame(kTwoFetches);
  frame->lngReportType = rtBuyerReportDaily;
  module.bytFetchesDone = 255;
  EXPECT_THROW(frame->SourceFetchComplete(), Error);
  EXPECT_EQ(module.bytFetchesDone, 255);
}

TEST_F(DispatchTest, AnErrorOfTheProgressHandlerIsPassedOver) {
  const auto frame = Frame(kTwoFetches);
  frame->lngReportType = rtDoc_Initial;
  host.FetchProgress = [](std::uint8_t, std::string_view) { throw std::runtime_error("host"); };
  frame->SourceFetchComplete();
  EXPECT_EQ(events, (EventLog{"FetchComplete 0"}));
  EXPECT_EQ(frame->progress.sngFetchPercent, 1.0F);
}

TEST_F(DispatchTest, AnErrorOfTheCompletionHandlerGoesOutAndLeavesTheCeilingUp) {
  const auto frame = Frame(kTwoFetches);
  frame->lngReportType = rtDoc_Initial;
  host.FetchComplete = [](const RecordsetPtr&, std::int32_t) { throw std::runtime_error("host"); };
  EXPECT_THROW(frame->SourceFetchComplete(), std::runtime_error);
  EXPECT_EQ(frame->progress.sngFetchCeiling, 60.0F);
  EXPECT_EQ(module.bytFetchesDone, 0);
}

TEST_F(DispatchTest, ASourceThatNoReportHasOpenedIsNotSet) {
  const auto frame = Frame(kTwoFetches);
  try {
    (void)frame->Rowset(Source::rsItems);
    FAIL() << "no error";
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::kObjectNotSet);
  }
  const RecordsetPtr items = OneCell(1);
  frame->UseHostItems(items);
  EXPECT_EQ(frame->Rowset(Source::rsItems), items);
}

}  // namespace
}  // namespace pstolvane1
