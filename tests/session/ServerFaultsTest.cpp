// Sessions on a PostgreSQL server that is not there, stops or is killed under a report: an error on
// both paths, and the same session goes on when the server is there again.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>
#include <thread>

#include "session/books/SampleBooks.h"
#include "session/clsStolvane1.h"
#include "session/rowset/Export.h"
#include "tests/server/OwnServer.h"
#include "tests/server/Server.h"

namespace pstolvane1 {
namespace {

using std::chrono::milliseconds;
using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

constexpr unsigned kSeeds[] = {3, 17, 42, 101, 256, 999, 1789, 4711, 31337, 65537};

class ServerFaults : public testing::TestWithParam<bool> {
 protected:
  ServerFaults() {
    books::SampleBooks(server_.ConnectionString());
    server_.Run("CHECKPOINT");
    session_.SetLocale("en_IN");
    session_.SetConnection("", "", server_.ConnectionString(), False);
    session_.OnConnect = [this](std::string_view words) { connected_ = words; };
    session_.FetchComplete = [this](RecordsetPtr rowset, std::int32_t) { delivered_ = rowset; };
  }
  ~ServerFaults() override { session_.FetchComplete = nullptr; }

  // A statement of four source rowsets as text, or "NUMBER DESCRIPTION" of its error.
  std::string Report() {
    const Boolean at_once = GetParam() ? True : False;
    try {
      delivered_ = session_.StockDetails_Categorywise(
          3, Date::FromYmd(2005, 4, 1), Date::FromYmd(2006, 3, 31), LastPurchaseRate, -1, 0,
          at_once, False, False, 1, False, True, True, True);
      const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
      while (!delivered_ && session_.Fetching()) {
        if (std::chrono::steady_clock::now() > end) return "it hangs";
        (void)WaitForEvents(milliseconds(20));
      }
      DoEvents();
      return delivered_ ? RowsAsJson(*delivered_) : "nothing was delivered";
    } catch (const Error& error) {
      return std::to_string(static_cast<std::int32_t>(error.Number())) + " " + error.Description();
    }
  }
  // What is left of a report that met an error is let go before the next.
  void PumpToTheEnd() {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (session_.Fetching() && std::chrono::steady_clock::now() < end) {
      try {
        (void)WaitForEvents(milliseconds(20));
      } catch (const Error&) {
      }
    }
    EXPECT_FALSE(session_.Fetching()) << "a fetch has no end";
  }

  const OwnServer server_;
  clsStolvane1 session_;
  std::string connected_ = "not told";
  RecordsetPtr delivered_;
};

INSTANTIATE_TEST_SUITE_P(OnBothPaths, ServerFaults, testing::Bool(),
                         [](const auto& path) { return path.param ? "AtOnce" : "InBackground"; });

TEST_P(ServerFaults, AServerThatIsNotThereAndThenIs) {
  const std::string right = Report();
  ASSERT_TRUE(right.starts_with("[[")) << right;
  server_.Stop();
  if (GetParam()) {
    try {
      session_.SetConnection("", "", server_.ConnectionString(), False);
      ADD_FAILURE() << "no error";
    } catch (const Error& error) {
      EXPECT_EQ(error.Number(), ErrorNumber::kConnection);
      EXPECT_EQ(error.Description(), "Unable to Connect to Database");
      EXPECT_THAT(error.Cause(), HasSubstr("cannot be opened: connection to server on socket"));
    }
  } else {
    session_.SetConnection("", "", server_.ConnectionString(), True);
    for (int i = 0; i < 500 && connected_ == "not told"; ++i) (void)WaitForEvents(milliseconds(20));
  }
  EXPECT_THAT(connected_, HasSubstr("cannot be opened: connection to server on socket"));
  server_.Resume();
  session_.SetConnection("", "", server_.ConnectionString(), False);
  EXPECT_EQ(connected_, "");
  EXPECT_EQ(Report(), right);
}

TEST_P(ServerFaults, AServerThatStopsUnderAReport) {
  const std::string right = Report();
  // Somebody else holds the movements, so that the report is still at them.
  ServerSession other(server_.ConnectionString());
  other.Run("BEGIN; LOCK TABLE \"GodownItem1\" IN ACCESS EXCLUSIVE MODE");
  std::thread stopping([&] {
    ServerSession watching(server_.ConnectionString());
    std::string waiting;
    for (int i = 0; i < 2000 && (waiting.empty() || waiting == "0"); ++i) {
      waiting = watching.Run(
          "SELECT count(*) FROM pg_stat_activity WHERE wait_event_type = 'Lock' AND query LIKE "
          "'%COPY (%'");
      std::this_thread::sleep_for(milliseconds(5));
    }
    server_.Halt();
  });
  EXPECT_THAT(Report(), AllOf(StartsWith("-2147217900 "),
                              testing::AnyOf(HasSubstr("the connection to the server was lost ("),
                                             HasSubstr("terminating connection"))));
  stopping.join();
  PumpToTheEnd();
  server_.Resume();
  EXPECT_EQ(Report(), right) << "without connecting again";
}

TEST_P(ServerFaults, ASessionThatGoesOrCancelsUnderAReportLeavesNothingOnTheServer) {
  const std::string right = Report();
  ServerSession other(server_.ConnectionString());
  const auto left = [&](const std::string& condition) {
    std::string count;
    for (int i = 0; i < 500 && count != "0"; ++i) {
      std::this_thread::sleep_for(milliseconds(20));
      count = server_.Run(
          "SELECT count(*) FROM pg_stat_activity WHERE application_name = 'pStolvane1' AND " +
          condition);
    }
    return count;
  };
  // Somebody else holds the movements, so that the report is still at them.
  other.Run("BEGIN; LOCK TABLE \"GodownItem1\" IN ACCESS EXCLUSIVE MODE");
  for (const bool cancels : {true, false}) {
    auto going = std::make_unique<clsStolvane1>();
    bool told = false;
    going->FetchComplete = [&](RecordsetPtr, std::int32_t) { told = true; };
    going->SetConnection("", "", server_.ConnectionString(), False);
    (void)going->StockDetails_Categorywise(3, Date::FromYmd(2005, 4, 1), Date::FromYmd(2006, 3, 31),
                                           LastPurchaseRate, -1, 0, False, False, False, 1, False,
                                           True, True, True);
    for (int i = 0; i < 5; ++i) (void)WaitForEvents(milliseconds(20));
    if (cancels) going->GetConnectionObject()->Cancel();
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (cancels && going->Fetching() && std::chrono::steady_clock::now() < end) {
      try {
        (void)WaitForEvents(milliseconds(20));
      } catch (const Error&) {
      }
    }
    EXPECT_FALSE(cancels && going->Fetching());
    going.reset();
    DoEvents();
    EXPECT_FALSE(told) << "a report without its rows";
    EXPECT_EQ(left("(state = 'active' OR backend_xmin IS NOT NULL)"), "0");
  }
  other.Run("COMMIT");
  EXPECT_EQ(Report(), right);
}

TEST_P(ServerFaults, AServerThatIsKilledAtTenPointsOfAReport) {
  const std::string right = Report();
  for (const unsigned seed : kSeeds) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    const std::chrono::microseconds after(random() % 120'000);
    std::thread killing([&] {
      std::this_thread::sleep_for(after);
      server_.Kill();
    });
    const std::string got = Report();
    killing.join();
    PumpToTheEnd();
    if (got != right) {
      EXPECT_THAT(got, AllOf(StartsWith("-2147217900 "), testing::Not(HasSubstr("time limit"))));
    }
    server_.Resume();
    ASSERT_EQ(Report(), right);
  }
}

}  // namespace
}  // namespace pstolvane1
