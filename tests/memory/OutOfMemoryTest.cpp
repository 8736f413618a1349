// Each allocation of a call fails in turn: the call is done whole or is error 7, and the session
// goes on.
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <unistd.h>

#include "FailingMemory.h"
#include "automation/pstolvane1_c.h"
#include "session/data/OutOfMemory.h"
#include "session/modStolvane1.h"
#include "session/rowset/Export.h"
#include "tests/golden/Call.h"
#include "tests/golden/Play.h"
#include "tests/golden/ServerBooks.h"
#include "tests/golden/SmallBooks.h"

namespace pstolvane1 {
namespace {

using golden::CaseFile;
using From = FailingMemory::From;

constexpr const char* kRanOut = "out of memory";

// What a call came to: "whole" where it gave what it is to give. An error tells what was being
// done, unless there is no room for these words either.
std::string OutcomeOf(const std::function<std::string()>& call, const std::string& whole,
                      From from = From::kOnce) {
  try {
    return call() == whole ? "whole" : "something else";
  } catch (const Error& error) {
    const std::string& words = error.Description();
    const bool tells = words.starts_with("while ") || (from == From::kOn && words == kRanOut);
    const bool ran_out =
        error.Number() == ErrorNumber::kOutOfMemory && tells && words.ends_with(kRanOut);
    return ran_out ? kRanOut : "error: " + error.Description() + " " + error.Cause();
  } catch (const std::exception& error) {
    return std::string("bare exception: ") + error.what();
  }
}

// How much of it is tried where a call takes long.
struct Sample {
  long step = 1;   // from one allocation that fails to the next
  long every = 1;  // failures from one whole call to the next
  From from = From::kOnce;
};

// The call again and again, with a later allocation that fails each time, until none does.
// Afterwards next must give the whole.
void FailEach(const std::function<std::string(long)>& call,
              const std::function<std::string()>& next, long at_least, Sample sample = {}) {
  const std::string whole = next();
  long failures = 0;
  for (long n = 0;; n += sample.step) {
    const std::string outcome = OutcomeOf([&] { return call(n); }, whole, sample.from);
    if (!FailingMemory::Failed()) {
      EXPECT_EQ(outcome, "whole");
      break;
    }
    ASSERT_TRUE(outcome == "whole" || outcome == kRanOut) << "allocation " << n << ": " << outcome;
    if (outcome == "whole") continue;
    if (++failures % sample.every != 0) continue;
    ASSERT_EQ(OutcomeOf(next, whole), "whole") << "after allocation " << n;
  }
  EXPECT_GE(failures, at_least);
}

// The books of a case and a session on them.
class Session {
 public:
  Session(const std::string& name, bool on_server)
      : case_(golden::ReadCase(golden::kCases + "/" + name, golden::kCases)) {
    if (on_server) {
      server_ = std::make_unique<golden::ServerBooks>();
      server_->Hold(case_.books);
    } else {
      file_ = std::make_unique<golden::SmallBooks>(case_.books);
    }
    *modStolvane1::OfThisThread() = modStolvane1();
    golden::Apply(session, case_, ConnectionString());
    session.FetchComplete = [this](const RecordsetPtr& rowset, std::int32_t) {
      delivered_ = rowset;
    };
  }

  [[nodiscard]] const std::string& ConnectionString() const {
    return server_ ? server_->ConnectionString() : file_->ConnectionString();
  }

  // The report of the case; with an n its n-th allocation fails. Where nothing is there from then
  // on, there is room again once the call has begun the report: its end is told when there is.
  RecordsetPtr Report(bool at_once, long n = -1, From from = From::kOnce) {
    const auto& call = case_.calls.back();
    const auto values = golden::ValuesOf(session, call, at_once);
    delivered_ = nullptr;
    std::optional<FailingMemory> failing;
    failing.emplace(n, from);
    if (RecordsetPtr rowset = golden::Call(session, call.operation, values)) return rowset;
    if (from == From::kOn) failing.reset();
    while (!delivered_ && session.Fetching()) (void)WaitForEvents(std::chrono::seconds(1));
    return std::move(delivered_);
  }
  // As text; "nothing" where none came.
  std::string ReportText(bool at_once, long n = -1, From from = From::kOnce) {
    golden::Outcome outcome;
    outcome.rowset = Report(at_once, n, from);
    return outcome.rowset ? golden::Expectation(outcome, {}) : "nothing";
  }

  clsStolvane1 session;

 private:
  const CaseFile case_;
  std::unique_ptr<golden::SmallBooks> file_;
  std::unique_ptr<golden::ServerBooks> server_;
  RecordsetPtr delivered_;
};

// --- Reports

struct Kind {
  const char* name;
  const char* case_file;
  bool at_once;
  Sample sample = {};
};

constexpr const char* kList = "LedgersByCode/bank_and_cash.case";

constexpr Kind kLists[] = {
    {"List", kList, true},
    {"ListInTheBackground", kList, false},
};
constexpr Kind kReports[] = {
    {"StockStatement", "StockDetails_Itemwise/fifo.case", true, {3, 10}},
    {"GroupsInTheBackground", "StockDetails_Categorywise/average.case", false, {11, 5}},
    {"Month", "Monthly_Itemwise/average.case", true, {11, 5}},
    {"ShapeInTheBackground", "BillWiseQuery/receipts_bills_and_items.case", false, {11, 5}},
    {"SearchInTheBackground", "AutoSearch/vehicles_by_bill.case", false, {11, 5}},
};

// A kind of report, and whether its books lie on a server.
class OutOfMemoryReport : public testing::TestWithParam<std::tuple<Kind, bool>> {
 protected:
  static void Fail(From from) {
    const Kind kind = std::get<0>(GetParam());
    const bool on_server = std::get<1>(GetParam());
    Session session(kind.case_file, on_server);
    Sample sample = kind.sample;
    sample.from = from;
    FailEach([&](long n) { return session.ReportText(kind.at_once, n, from); },
             [&] { return session.ReportText(kind.at_once); }, 20, sample);
  }
};
class OutOfMemoryList : public OutOfMemoryReport {};

std::string NameOf(const testing::TestParamInfo<std::tuple<Kind, bool>>& tested) {
  const auto& [kind, on_server] = tested.param;
  return std::string(kind.name) + (on_server ? "OnAServer" : "OnAFile");
}

TEST_P(OutOfMemoryReport, EndsInAnErrorAndTheSessionGoesOn) { Fail(From::kOnce); }

TEST_P(OutOfMemoryList, EndsInAnErrorWhereNothingIsThereAnyMore) { Fail(From::kOn); }

INSTANTIATE_TEST_SUITE_P(Lists, OutOfMemoryReport,
                         testing::Combine(testing::ValuesIn(kLists), testing::Bool()), NameOf);
INSTANTIATE_TEST_SUITE_P(Reports, OutOfMemoryReport,
                         testing::Combine(testing::ValuesIn(kReports), testing::Bool()), NameOf);
INSTANTIATE_TEST_SUITE_P(Lists, OutOfMemoryList,
                         testing::Combine(testing::ValuesIn(kLists), testing::Bool()), NameOf);

// --- What else a host calls

class OutOfMemoryOnEngines : public testing::TestWithParam<bool> {};

// The number that the connection's failures have says nothing of memory, but their cause does.
TEST_P(OutOfMemoryOnEngines, EndsAConnectAndTheNextOneSucceeds) {
  Session session(kList, GetParam());
  const auto connect = [&](long n) {
    try {
      const FailingMemory failing(n);
      session.session.SetConnection("", "", session.ConnectionString(), False);
    } catch (const Error& error) {
      if (error.Number() != ErrorNumber::kConnection) throw;
      EXPECT_EQ(error.Description(), "Unable to Connect to Database");
      EXPECT_EQ(session.session.GetConnectionObject(), nullptr);
      throw Error(ErrorNumber::kOutOfMemory, error.Cause());
    }
    return session.ReportText(true);
  };
  FailEach(
      connect, [&] { return connect(-1); }, 30);
}

INSTANTIATE_TEST_SUITE_P(Engines, OutOfMemoryOnEngines, testing::Bool(),
                         [](const auto& kind) { return kind.param ? "Server" : "File"; });

TEST(OutOfMemory, EndsAnExportAndTheNextOneIsWhole) {
  Session session("StockDetails_Itemwise/fifo.case", false);
  const RecordsetPtr rowset = session.Report(true);
  const RecordsetPtr few = Session(kList, false).Report(true);
  const auto locale = Locale::Get("en_IN");
  const std::string path = (std::filesystem::temp_directory_path() /
                            ("out_of_memory_" + std::to_string(getpid()) + ".xlsx"))
                               .string();
  const auto written = [](long n, const std::function<void(std::ostream&)>& write) {
    std::ostringstream out;
    out.exceptions(std::ios::badbit);
    {
      const FailingMemory failing(n);
      write(out);
    }
    return out.str();
  };
  const std::function<std::string(long)> exports[] = {
      [&](long n) {
        const FailingMemory failing(n);
        return ExportJson(*rowset);
      },
      [&](long n) { return written(n, [&](std::ostream& out) { ExportCsv(*rowset, out); }); },
      [&](long n) {
        return written(n, [&](std::ostream& out) { ExportHtml(*rowset, "Stock", locale, out); });
      },
      [&](long n) {
        {
          const FailingMemory failing(n);
          ExportXlsx(*few, "Ledgers", locale, path);
        }
        return std::string(std::filesystem::file_size(path) > 4000 ? "a workbook" : "a piece");
      },
  };
  for (const auto& work : exports)
    FailEach(
        work, [&] { return work(-1); }, 10);
  std::filesystem::remove(path);
}

TEST(OutOfMemory, EndsAFilterAndASort) {
  Session session(kList, false);
  const RecordsetPtr rowset = session.Report(true);
  const auto work = [&](long n) {
    const RecordsetPtr clone = rowset->Clone();
    {
      const FailingMemory memory(n);
      clone->Filter("NAME LIKE '*a*' OR ID > 1");
      clone->Sort("NAME DESC, ID");
    }
    return ExportJson(*clone);
  };
  FailEach(
      work, [&] { return work(-1); }, 3);
}

// --- C

class CSession {
 public:
  explicit CSession(const std::string& books) : books_(books) { Connect(); }
  ~CSession() { pst_session_free(session_); }
  CSession(const CSession&) = delete;
  CSession& operator=(const CSession&) = delete;

  void Connect(long n = -1) {
    std::int32_t result = pst_ok;
    {
      const FailingMemory failing(n);
      result = pst_session_connect(session_, books_.c_str());
    }
    Require(result);
  }
  std::string List(long n = -1) {
    constexpr const char* kNames[] = {"bytYearno", "sCode", "blnReport"};
    constexpr const char* kValues[] = {"2", "2,41", "true"};
    pst_rowset* rowset = nullptr;
    char* csv = nullptr;
    std::int32_t result = pst_ok;
    {
      const FailingMemory failing(n);
      result = pst_call(session_, "LedgersByCode", kNames, kValues, 3, &rowset);
      if (result == pst_ok) result = pst_rowset_csv(rowset, &csv);
    }
    pst_rowset_free(rowset);
    Require(result);
    std::string text = csv;
    pst_text_free(csv);
    return text;
  }

 private:
  // "while" stands before what a C++ host is told as well.
  static void Require(std::int32_t result) {
    if (result == pst_ok) return;
    const std::string text = pst_error_text();
    if (!text.ends_with(kRanOut) || (result != 7 && result != 501)) throw std::runtime_error(text);
    throw Error(ErrorNumber::kOutOfMemory, std::string("while calling: ") + kRanOut);
  }

  const std::string books_;
  pst_session* const session_ = pst_session_new();
};

TEST(OutOfMemory, IsTheSameErrorInC) {
  Session books(kList, false);
  CSession session(books.ConnectionString());
  const auto list = [&] { return session.List(); };
  FailEach([&](long n) { return session.List(n); }, list, 100);
  FailEach(
      [&](long n) {
        session.Connect(n);
        return session.List();
      },
      list, 100);
}

}  // namespace
}  // namespace pstolvane1
