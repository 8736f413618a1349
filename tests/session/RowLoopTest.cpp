// The row loop that every row builder has: its events, its end, its errors.
#include <gtest/gtest.h>

#include "SessionHarness.h"
#include "session/RowLoop.h"
#include "session/data/MessageLoop.h"
#include "session/data/RowGroups.h"

namespace pstolvane1 {
namespace {

RecordsetPtr RowsetOfNumbers(std::int32_t count) {
  const RecordsetPtr rowset = Recordset::New();
  rowset->Fields().Append("n", adInteger);
  rowset->Open();
  for (std::int32_t n = 1; n <= count; ++n) {
    rowset->AddNew();
    rowset->Collect("n", n);
    rowset->Update();
  }
  if (count > 0) rowset->MoveFirst();
  return rowset;
}

class RowLoopTest : public testing::Test {
 protected:
  RowLoopTest() {
    *modStolvane1::OfThisThread() = modStolvane1();
    LogEvents(host, events);
    frame->progress.sngFetchPercent = 20;
    frame->progress.sngFetchCeiling = 60;
  }
  // The rows that a pass over the source writes.
  std::vector<std::int32_t> Pass(Recordset& source, std::int32_t range = 60) {
    std::vector<std::int32_t> written;
    ForEachSourceRow(
        *frame, source, [&](const Recordset::Row& row) { written.push_back(row["n"].ToInt32()); },
        range);
    return written;
  }

  clsStolvane1Events host;
  EventLog events;
  std::shared_ptr<ReportFrame> frame =
      std::make_shared<ReportFrame>(std::span<const ReportRow>(), nullptr, host);
};

TEST_F(RowLoopTest, EachRowIsAStepOf60OverTheRowsOfTheSource) {
  EXPECT_EQ(Pass(*RowsetOfNumbers(4)), (std::vector<std::int32_t>{1, 2, 3, 4}));
  EXPECT_EQ(frame->lngFetchTotal, 4);
  // 20 + 15, + 15, and the ceiling after two thirds of the rows.
  EXPECT_EQ(events, (EventLog{"35 manipulating", "50 manipulating", "60 manipulating"}));
}

TEST_F(RowLoopTest, ABuilderMayStepBy40InsteadOf60) {
  (void)Pass(*RowsetOfNumbers(4), 40);
  EXPECT_EQ(events,
            (EventLog{"30 manipulating", "40 manipulating", "50 manipulating", "60 manipulating"}));
}

TEST_F(RowLoopTest, ThePercentStopsAt60AndNeverReaches100) {
  int highest = 0;
  int steps = 0;
  host.FetchProgress = [&](std::uint8_t percent, std::string_view message) {
    EXPECT_EQ(message, "manipulating");
    highest = std::max<int>(highest, percent);
    ++steps;
  };
  (void)Pass(*RowsetOfNumbers(1000));
  EXPECT_EQ(steps, 1000);
  EXPECT_EQ(highest, 60);
}

TEST_F(RowLoopTest, WithoutRowsNothingIsWrittenAndNothingTold) {
  EXPECT_EQ(Pass(*RowsetOfNumbers(0)), std::vector<std::int32_t>());
  EXPECT_EQ(events, EventLog{});
  EXPECT_EQ(frame->lngFetchTotal, 0);
}

TEST_F(RowLoopTest, MessagesAreDeliveredBetweenTheRowAndItsProgress) {
  const auto queue = MessageQueue::OfThisThread();
  const RecordsetPtr source = RowsetOfNumbers(2);
  ForEachSourceRow(*frame, *source, [&](const Recordset::Row& row) {
    const std::string name = "row " + row["n"].ToText();
    events.push_back(name);
    queue->Post([this, name] { events.push_back("message of " + name); });
  });
  EXPECT_EQ(events, (EventLog{"row 1", "message of row 1", "50 manipulating", "row 2",
                              "message of row 2", "60 manipulating"}));
}

TEST_F(RowLoopTest, ACancelEndsEveryPassAfterOneRow) {
  frame->blnCancelFetching = True;
  EXPECT_EQ(Pass(*RowsetOfNumbers(4)), std::vector<std::int32_t>{1});
  EXPECT_EQ(Pass(*RowsetOfNumbers(3)), std::vector<std::int32_t>{1});
  EXPECT_EQ(Pass(*RowsetOfNumbers(0)), std::vector<std::int32_t>());
}

TEST_F(RowLoopTest, ACancelThatAMessageBringsEndsThePassAtItsRow) {
  const auto queue = MessageQueue::OfThisThread();
  const RecordsetPtr source = RowsetOfNumbers(4);
  int rows = 0;
  ForEachSourceRow(*frame, *source, [&](const Recordset::Row&) {
    if (++rows == 2) queue->Post([this] { frame->blnCancelFetching = True; });
  });
  EXPECT_EQ(rows, 2);
}

TEST_F(RowLoopTest, OnlyTrueCancels) {
  for (const Boolean other : {Boolean(1), Boolean(2), False}) {
    frame->blnCancelFetching = other;
    EXPECT_EQ(Pass(*RowsetOfNumbers(3)).size(), 3U);
  }
}

TEST_F(RowLoopTest, ACancelThatIsTakenBackIsNone) {
  frame->blnCancelFetching = True;
  frame->blnCancelFetching = False;
  EXPECT_EQ(Pass(*RowsetOfNumbers(3)).size(), 3U);
}

TEST_F(RowLoopTest, AnErrorNamesTheReportAndTheRow) {
  frame->lngReportType = rtDoc_Initial;
  const RecordsetPtr source = RowsetOfNumbers(3);
  try {
    ForEachSourceRow(*frame, *source, [&](const Recordset::Row& row) {
      if (row["n"].ToInt32() == 2) throw Error(ErrorNumber::kOverflow, "too large");
    });
    FAIL() << "no error";
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::kOverflow);
    EXPECT_EQ(error.Description(), "while writing rtDoc_Initial from row 2: too large");
  }
}

TEST_F(RowLoopTest, TheRowsOfAGroupAreStepsOverTheWholeSource) {
  const RecordsetPtr source = RowsetOfNumbers(4);
  const RowGroups groups = source->GroupBy({"n"});
  std::vector<std::int32_t> written;
  const auto write = [&](const Recordset::Row& row) { written.push_back(row["n"].ToInt32()); };
  EXPECT_TRUE(ForEachSourceRow(*frame, *source, groups.Find({3}), write));
  EXPECT_TRUE(ForEachSourceRow(*frame, *source, groups.Find({2}), write));
  EXPECT_TRUE(ForEachSourceRow(*frame, *source, groups.Find({9}), write));
  EXPECT_EQ(written, (std::vector<std::int32_t>{3, 2}));
  EXPECT_EQ(frame->lngFetchTotal, 4);
  EXPECT_EQ(events, (EventLog{"35 manipulating", "50 manipulating"}));
  frame->blnCancelFetching = True;
  EXPECT_FALSE(ForEachSourceRow(*frame, *source, source->Rows(), write));
  EXPECT_EQ(written, (std::vector<std::int32_t>{3, 2, 1}));
}

TEST_F(RowLoopTest, AnErrorInAGroupNamesTheRowOfTheSource) {
  const RecordsetPtr source = RowsetOfNumbers(3);
  const RowGroups groups = source->GroupBy({"n"});
  try {
    ForEachSourceRow(*frame, *source, groups.Find({3}), [](const Recordset::Row&) {
      throw Error(ErrorNumber::kOverflow, "too large");
    });
    FAIL() << "no error";
  } catch (const Error& error) {
    EXPECT_NE(error.Description().find("from row 3: too large"), std::string::npos);
  }
}

TEST_F(RowLoopTest, ThePositionOfTheSourceStays) {
  const RecordsetPtr source = RowsetOfNumbers(3);
  source->MoveNext();
  EXPECT_EQ(Pass(*source), (std::vector<std::int32_t>{1, 2, 3}));
  EXPECT_EQ(source->Collect("n"), Variant(2));
}

TEST(StyleOf, TakesTheReportsScaleDateRuleAndSeparator) {
  clsStolvane1Events host;
  const auto frame = std::make_shared<ReportFrame>(std::span<const ReportRow>(), nullptr, host);
  frame->SetLocale("de_DE");
  frame->module.sngScale = 1000;
  frame->module.blnUseLongDate = true;
  frame->module.strRefSeperator = "-";
  const CellStyle style = StyleOf(*frame);
  EXPECT_EQ(style.locale.Name(), "de_DE");
  EXPECT_EQ(style.scale, 1000);
  EXPECT_TRUE(style.long_date);
  EXPECT_EQ(style.number_separator, "-");
  EXPECT_FALSE(style.pass_over_errors);
}

}  // namespace
}  // namespace pstolvane1
