// Sessions on real books, from the call to the delivered rowset: several at a time, and ended at
// any moment.
#include <array>
#include <atomic>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "../books/BooksOnDisk.h"
#include "session/clsStolvane1.h"
#include "session/rowset/Export.h"

namespace pstolvane1 {
namespace {

// Reports with one, two, three and four source rowsets.
constexpr int kReports = 4;
RecordsetPtr Ask(clsStolvane1& session, int report, Boolean blnReport) {
  const Date from = Date::FromYmd(2004, 4, 1);
  const Date to = Date::FromYmd(2005, 3, 31);
  switch (report) {
    case 0:
      return session.Doc_Initial(2, 10, from, to, blnReport);
    case 1:
      return session.StockDetails_Itemwise(2, from, to, FifoRate, -1, 0, blnReport, False, False, 1,
                                           False, True, True, True);
    case 2:
      return session.StockDetails_Godownwise(2, from, to, AverageRate, -1, 0, blnReport, True,
                                             False, 1, False, True, True, True);
    default:
      return session.StockDetails_Categorywise(2, from, to, LastPurchaseRate, -1, 0, blnReport,
                                               False, False, 1, False, True, True, True);
  }
}

std::unique_ptr<clsStolvane1> Connected() {
  auto session = std::make_unique<clsStolvane1>();
  session->SetLocale("en_IN");
  session->SetConnection("", "", books::test::SampleFile(), False);
  return session;
}

// Ask for it before an event can: what makes it pumps itself.
const std::array<std::string, kReports>& Expected() {
  static const std::array<std::string, kReports> texts = [] {
    std::array<std::string, kReports> all;
    const auto session = Connected();
    for (int report = 0; report < kReports; ++report) {
      all.at(static_cast<std::size_t>(report)) = RowsAsJson(*Ask(*session, report, True));
    }
    return all;
  }();
  return texts;
}

// Pumps until nothing fetches; what fails meanwhile is an Error and nothing else.
void PumpToTheEnd(const std::unique_ptr<clsStolvane1>& session) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
  while (session && session->Fetching() && std::chrono::steady_clock::now() < end) {
    try {
      (void)WaitForEvents(std::chrono::milliseconds(20));
    } catch (const Error&) {
    }
  }
  EXPECT_FALSE(session && session->Fetching()) << "a fetch has no end";
}

TEST(WholeRoad, SessionsOnSeveralThreadsGiveTheFiguresOfOne) {
  const auto& expected = Expected();
  std::atomic<int> right = 0;
  std::vector<std::thread> threads;
  for (int number = 0; number < kReports; ++number) {
    threads.emplace_back([&, number] {
      const auto session = Connected();
      RecordsetPtr delivered;
      session->FetchComplete = [&](RecordsetPtr rowset, std::int32_t) { delivered = rowset; };
      for (int turn = 0; turn < kReports; ++turn) {
        const int report = (number + turn) % kReports;  // each begins with another one
        const std::string& text = expected.at(static_cast<std::size_t>(report));
        right += RowsAsJson(*Ask(*session, report, True)) == text ? 1 : 0;
        delivered.reset();
        EXPECT_EQ(Ask(*session, report, False), nullptr);
        PumpToTheEnd(session);
        right += delivered && RowsAsJson(*delivered) == text ? 1 : 0;
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(right, 2 * kReports * kReports);
}

TEST(WholeRoad, AReportAskedForWhileAnotherFetchesIsWholeEachTimeItIsDelivered) {
  const std::string& expected = Expected()[0];
  const auto session = Connected();
  int deliveries = 0;
  session->FetchComplete = [&](const RecordsetPtr& rowset, std::int32_t) {
    ++deliveries;
    EXPECT_EQ(RowsAsJson(*rowset), expected);
  };
  for (int round = 0; round < 20; ++round) {
    // Of its four source rowsets one is replaced, and the three others still count.
    EXPECT_EQ(Ask(*session, 3, False), nullptr);
    if (round % 2 == 0) std::this_thread::sleep_for(std::chrono::milliseconds(round));
    const int before = deliveries;
    EXPECT_EQ(Ask(*session, 0, False), nullptr);
    PumpToTheEnd(session);
    EXPECT_GT(deliveries, before);
  }
}

enum class End { kDestroyed, kCancelled, kClosed, kCancelFetching, kOtherReport, kReconnected };
constexpr std::array kEnds = {End::kDestroyed,      End::kCancelled,   End::kClosed,
                              End::kCancelFetching, End::kOtherReport, End::kReconnected};

void Finish(std::unique_ptr<clsStolvane1>& session, End end) {
  switch (end) {
    case End::kDestroyed:
      return session.reset();
    case End::kCancelled:
      return session->GetConnectionObject()->Cancel();
    case End::kClosed:
      return session->GetConnectionObject()->Close();
    case End::kCancelFetching:
      return session->CancelFetching(True);
    case End::kOtherReport:
      EXPECT_EQ(RowsAsJson(*Ask(*session, 0, True)), Expected()[0]);
      return;
    case End::kReconnected:
      session->SetConnection("", "", books::test::SampleFile(), False);
      return;
  }
}

class EndedAtAnyMoment : public testing::TestWithParam<End> {
 protected:
  EndedAtAnyMoment() { (void)Expected(); }
};

TEST_P(EndedAtAnyMoment, AReportLeavesTheSessionUsable) {
  for (int moment = 0; moment < 12; ++moment) {
    auto session = Connected();
    bool ended = false;
    session->FetchComplete = [&](const RecordsetPtr&, std::int32_t) {
      EXPECT_FALSE(ended && GetParam() == End::kDestroyed) << "an event of a session that is gone";
    };
    (void)Ask(*session, moment % kReports, False);
    const auto until =
        std::chrono::steady_clock::now() + std::chrono::microseconds(moment * moment * 100);
    while (std::chrono::steady_clock::now() < until) {
      if (moment % 2 == 0) DoEvents();
    }
    Finish(session, GetParam());
    ended = true;
    PumpToTheEnd(session);
    DoEvents();
    if (!session) continue;
    session->CancelFetching(False);
    session->SetConnection("", "", books::test::SampleFile(), False);
    const int next = (moment + 1) % kReports;
    EXPECT_EQ(RowsAsJson(*Ask(*session, next, True)),
              Expected().at(static_cast<std::size_t>(next)));
  }
}

// A handler is the one place in which a host can act while lines are written.
TEST_P(EndedAtAnyMoment, InsideAProgressEventItLeavesTheSessionUsable) {
  for (const int moment : {1, 2, 3, 4, 9, 40}) {
    auto session = Connected();
    int events = 0;
    bool delivered = false;
    session->FetchComplete = [&](const RecordsetPtr&, std::int32_t) { delivered = true; };
    session->FetchProgress = [&, moment](std::uint8_t, std::string_view) {
      if (++events == moment) Finish(session, GetParam());
    };
    (void)Ask(*session, moment % kReports, False);
    PumpToTheEnd(session);
    if (!session) {
      EXPECT_FALSE(delivered);
      continue;
    }
    session->FetchProgress = nullptr;
    session->CancelFetching(False);
    session->SetConnection("", "", books::test::SampleFile(), False);
    EXPECT_EQ(RowsAsJson(*Ask(*session, 1, True)), Expected()[1]);
  }
}

std::string NameOf(const testing::TestParamInfo<End>& end) {
  constexpr std::array kNames = {"Destroyed",      "Cancelled",   "Closed",
                                 "CancelFetching", "OtherReport", "Reconnected"};
  return kNames.at(static_cast<std::size_t>(end.param));
}
INSTANTIATE_TEST_SUITE_P(Ends, EndedAtAnyMoment, testing::ValuesIn(kEnds), &NameOf);

}  // namespace
}  // namespace pstolvane1
