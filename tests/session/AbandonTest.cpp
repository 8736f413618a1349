// Abandon, wherever a report is when it comes.
#include <atomic>
#include <chrono>
#include <cstdio>
#include <functional>
#include <optional>
#include <sstream>
#include <string>
#include <thread>
#include <unistd.h>

#include "SessionHarness.h"
#include "session/rowset/Export.h"

namespace pstolvane1 {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr const char* kAbandoned = "the report was abandoned";

FakeTable Ledgers(std::int32_t count) {
  FakeTable table{.columns = {{.name = "Amount", .type = adCurrency},
                              {.name = "Ledger_id", .type = adInteger},
                              {.name = "LedgerName", .type = adVarChar}}};
  for (std::int32_t i = 1; i <= count; ++i) {
    table.rows.push_back({Currency::FromTenThousandths(10000 * i), i,
                          "Ledger " + std::to_string(std::int64_t{i} * 7919 % count)});
  }
  return table;
}

class Abandon : public SessionTest {
 protected:
  Abandon() {
    books->Answer("as amount", Ledgers(4));
    Connect();
  }
  // What it raised, or "".
  template <typename Work>
  static std::string Raised(Work&& work) {
    try {
      work();
    } catch (const Error& error) {
      EXPECT_EQ(error.Number(), ErrorNumber::kQueryRefused);
      return error.Description();
    }
    return "";
  }
  // Runs the work, abandons it from another thread once it has begun, and gives how long that took
  // to end it. A machine that is busy with other things may try again.
  template <typename Work>
  milliseconds TimeToEnd(Work&& work) {
    milliseconds best = milliseconds::max();
    for (int attempt = 0; attempt < 4 && best >= milliseconds(500); ++attempt) {
      Clock::time_point abandoned;
      std::atomic<bool> ended = false;
      std::thread other([&] {
        std::this_thread::sleep_for(milliseconds(20));
        while (!begun) std::this_thread::sleep_for(milliseconds(1));
        abandoned = Clock::now();
        // Between two pieces of work there is nothing to abandon.
        for (; !ended; std::this_thread::sleep_for(milliseconds(10))) session->Abandon();
      });
      const std::string raised = Raised(work);
      const Clock::time_point end = Clock::now();
      ended = true;
      other.join();
      EXPECT_EQ(raised, kAbandoned);
      best = std::min(best, std::chrono::duration_cast<milliseconds>(end - abandoned));
    }
    return best;
  }
  std::atomic<bool> begun = true;

  void ExpectTheNextIsRight() {
    books->Answer("as amount", Ledgers(4));
    EXPECT_EQ(Documents(True)->RecordCount(), 6);
    EXPECT_EQ(FetchDocuments()->RecordCount(), 6);
  }
};

TEST_F(Abandon, AConnectThatWaits) {
  books->OpenHolds();
  for (int attempt = 0; attempt < 2; ++attempt) {
    events.clear();
    std::atomic<bool> ended = false;
    std::thread other([&] {
      for (; !ended; std::this_thread::sleep_for(milliseconds(10))) session->Abandon();
    });
    try {
      session->SetConnection("", "", "books", False);
      ADD_FAILURE() << "it was opened";
    } catch (const Error& error) {
      EXPECT_EQ(error.Number(), ErrorNumber::kConnection);
      EXPECT_NE(std::string(error.what()).find("the attempt to connect was abandoned"),
                std::string::npos)
          << error.what();
    }
    ended = true;
    other.join();
    EXPECT_EQ(events, (EventLog{"OnConnect 'the attempt to connect was abandoned'"}));
  }
  books->Release();
  Connect();
  ExpectTheNextIsRight();
}

TEST_F(Abandon, AFetchIsDroppedWithoutFetchComplete) {
  FakeTable held = Ledgers(4);
  held.held = true;
  books->Answer("as amount", held);
  for (const bool from_another_thread : {false, true}) {
    EXPECT_EQ(Documents(False), nullptr);
    EXPECT_TRUE(session->Fetching());
    if (from_another_thread) {
      std::thread([&] { session->Abandon(); }).join();
    } else {
      session->Abandon();
    }
    EXPECT_FALSE(session->Fetching());
    (void)WaitForEvents(milliseconds(50));
    DoEvents();
    for (const std::string& event : events) EXPECT_FALSE(event.starts_with("FetchComplete"));
  }
  ExpectTheNextIsRight();
}

TEST_F(Abandon, ACallThatReadsEndsWithAnError) {
  FakeTable held = Ledgers(4);
  held.held = true;
  books->Answer("as amount", held);
  EXPECT_LT(TimeToEnd([&] { (void)Documents(True); }), milliseconds(500));
  ExpectTheNextIsRight();
}

TEST_F(Abandon, LinesThatAreWrittenAreDropped) {
  books->Answer("as amount", Ledgers(100'000));
  const auto logging = session->FetchProgress;
  session->FetchProgress = [&](std::uint8_t, std::string_view) { begun = true; };
  begun = false;
  EXPECT_LT(TimeToEnd([&] { (void)Documents(True); }), milliseconds(500));
  session->FetchProgress = logging;
  ExpectTheNextIsRight();
}

TEST_F(Abandon, InTheBackgroundLinesAreDroppedWithoutFetchComplete) {
  int rows = 0;
  const auto logging = session->FetchProgress;
  session->FetchProgress = [&](std::uint8_t percent, std::string_view message) {
    logging(percent, message);
    if (message == "manipulating" && ++rows == 2) session->Abandon();
  };
  EXPECT_EQ(Documents(False), nullptr);
  PumpUntil([&] { return rows == 2; });
  DoEvents();
  EXPECT_FALSE(session->Fetching());
  EXPECT_TRUE(events.back().ends_with("manipulating"));
  session->FetchProgress = logging;
  ExpectTheNextIsRight();
}

TEST_F(Abandon, AHandlerMayAskForTheNextReportAtOnce) {
  RecordsetPtr next;
  session->FetchProgress = [&](std::uint8_t, std::string_view message) {
    if (message != "Manipulating" || next) return;
    session->Abandon();
    next = Documents(True);
  };
  EXPECT_EQ(Documents(False), nullptr);
  PumpUntil([&] { return next != nullptr; });
  DoEvents();
  EXPECT_EQ(next->RecordCount(), 6);
  for (const std::string& event : events) EXPECT_FALSE(event.starts_with("FetchComplete"));
}

TEST_F(Abandon, FetchesThatWereDoneCountForNoReportThatFollows) {
  modStolvane1& module = *modStolvane1::OfThisThread();
  FakeTable held = Ledgers(4);
  held.held = true;
  books->Answer("as amount", held);
  EXPECT_EQ(Documents(False), nullptr);
  module.bytFetchesDone = 3;
  session->Abandon();
  EXPECT_EQ(module.bytFetchesDone, 0);
}

TEST_F(Abandon, WithoutAReportItDoesNothing) {
  session->Abandon();
  ExpectTheNextIsRight();
  const RecordsetPtr report = Documents(True);
  session->Abandon();
  std::ostringstream out;
  ExportCsv(*report, out);
  EXPECT_EQ(report->RecordCount(), 6);
  ExpectTheNextIsRight();
}

TEST_F(Abandon, TouchesNoOtherSessionOfTheThread) {
  clsStolvane1 other(books->Maker());
  const auto abandon = [&](std::uint8_t, std::string_view) { other.Abandon(); };
  session->FetchProgress = abandon;
  EXPECT_EQ(Documents(True)->RecordCount(), 6);
}

TEST_F(Abandon, ASortLeavesTheRowsAsTheyWere) {
  (void)Documents(True);
  const RecordsetPtr rowset = Recordset::New();
  rowset->Fields().Append("Name", adBSTR);
  rowset->Open();
  constexpr std::int32_t kRows = 200'000;
  for (std::int32_t i = 0; i < kRows; ++i) {
    rowset->AddNew();
    rowset->Collect("Name", "A name that begins like the others " +
                                std::to_string(std::int64_t{i} * 7919 % kRows));
    rowset->Update();
  }
  EXPECT_LT(TimeToEnd([&] {
              for (;;) {
                rowset->Sort("Name");
                rowset->Sort("");
              }
            }),
            milliseconds(500));
  EXPECT_EQ(rowset->Sort(), "");
  rowset->MoveFirst();
  EXPECT_EQ(rowset->Collect("Name"), Variant("A name that begins like the others 0"));
  EXPECT_EQ(rowset->RecordCount(), kRows);
}

TEST_F(Abandon, AnExportEnds) {
  books->Answer("as amount", Ledgers(20'000));
  const RecordsetPtr report = Documents(True);
  const auto locale = Locale::Get("en_IN");
  const std::string file = testing::TempDir() + "abandoned." + std::to_string(getpid()) + ".xlsx";
  const std::function<void()> kExports[] = {
      [&] {
        std::ostringstream out;
        ExportCsv(*report, out);
      },
      [&] { (void)ExportJson(*report); },
      [&] {
        std::ostringstream out;
        ExportHtml(*report, "Sales", locale, out);
      },
      [&] { ExportXlsx(*report, "Sales", locale, file); },
  };
  for (const auto& export_report : kExports) {
    EXPECT_LT(TimeToEnd([&] {
                for (;;) export_report();
              }),
              milliseconds(500));
  }
  (void)std::remove(file.c_str());
}

}  // namespace
}  // namespace pstolvane1
