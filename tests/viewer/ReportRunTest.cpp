// A report from its question to its end.
#include <fmt/format.h>
#include <future>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <thread>
#include <vector>

#include "session/data/Error.h"
#include "tests/viewer/ViewerBooks.h"
#include "viewer/Runs.h"

namespace pstolvane1::viewer {
namespace {

using automation::WrongCall;
using Stage = ReportRun::Stage;

automation::CallWords AllStock() {
  return test::Asked(
      "StockDetails_Itemwise",
      {"bytYearno=3", "dtFromDate=2005-04-01", "dtToDate=2006-03-31", "ValuationMethod=FifoRate",
       "blnDetailed=true", "blnAltUom=false", "sngScale=1"});
}

TEST(ReportRun, GoesFromRunningToDone) {
  ReportRun run(AllStock(), {});
  const ReportRun::State state = test::Ended(run);
  EXPECT_EQ(state.stage, Stage::kDone) << state.problem;
  EXPECT_GT(state.percent, 0);
  EXPECT_GT(nlohmann::json::parse(state.head)["lines"], 10);
}

TEST(ReportRun, TellsWhatWentWrong) {
  automation::CallWords words = test::SalesByParty();
  words.arguments.emplace_back("strBillFilter=nonsense = 1");
  ReportRun run(words, {});
  const ReportRun::State state = test::Ended(run);
  EXPECT_EQ(state.stage, Stage::kFailed);
  EXPECT_NE(state.problem.find("nonsense"), std::string::npos) << state.problem;
  EXPECT_THROW(run.Ask([](ShownReport& shown) { return shown.Head(); }), WrongCall);
}

// Each error belongs to its asker alone, also while others ask.
TEST(ReportRun, TellsEachAskerItsOwnError) {
  ReportRun run(test::SalesByParty(), {});
  ASSERT_EQ(test::Ended(run).stage, Stage::kDone);
  const auto ask = [&run](const std::string& asker) {
    for (int round = 0; round < 200; ++round) {
      const std::string text = fmt::format("question {} of {}", round, asker);
      try {
        run.Ask([&text](ShownReport&) -> std::string { throw WrongCall(text); });
        ADD_FAILURE() << text;
      } catch (const WrongCall& wrong) {
        EXPECT_STREQ(wrong.what(), text.c_str());
      }
    }
  };
  std::vector<std::thread> askers;
  for (const char* asker : {"one", "another", "a third"}) askers.emplace_back(ask, asker);
  for (std::thread& asker : askers) asker.join();
}

TEST(ReportRun, RefusesMoreLinesThanItMayShow) {
  Limits limits;
  limits.lines = 3;
  ReportRun run(test::SalesByParty(), limits);
  const ReportRun::State state = test::Ended(run);
  EXPECT_EQ(state.stage, Stage::kFailed);
  EXPECT_EQ(state.problem,
            "the report has 6 lines, and 3 is the most that is shown; ask for a shorter period or "
            "for less at once");
}

// One that has ended by then is done.
constexpr int kRounds = 20;

TEST(ReportRun, IsAbandonedWhereverItIs) {
  int abandoned = 0;
  for (int round = 0; round < kRounds; ++round) {
    ReportRun run(AllStock(), {});
    run.Abandon();
    const ReportRun::State state = test::Ended(run);
    EXPECT_NE(state.stage, Stage::kFailed) << state.problem;
    abandoned += state.stage == Stage::kAbandoned ? 1 : 0;
  }
  EXPECT_GT(abandoned, 0);
}

TEST(ReportRun, EndsWhenItTakesTooLong) {
  Limits limits;
  limits.time = std::chrono::milliseconds(0);
  int ended = 0;
  for (int round = 0; round < kRounds; ++round) {
    ReportRun run(AllStock(), limits);
    ReportRun::State state;
    do {
      run.Watch();
      state = run.After(state.version, std::chrono::milliseconds(1));
    } while (state.stage == Stage::kRunning);
    EXPECT_NE(state.stage, Stage::kAbandoned);
    if (state.stage != Stage::kFailed) continue;
    ++ended;
    EXPECT_EQ(state.problem, "the report took longer than it may; ask for a shorter period");
  }
  EXPECT_GT(ended, 0);
}

TEST(ReportRun, MayBeDroppedWhileItRuns) {
  for (int round = 0; round < kRounds; ++round) const ReportRun run(AllStock(), {});
}

TEST(ReportRun, IsAskedByManyAtOnce) {
  ReportRun run(test::SalesByParty(), {});
  ASSERT_EQ(test::Ended(run).stage, Stage::kDone);
  std::vector<std::future<std::string>> answers;
  for (int asker = 0; asker < 8; ++asker) {
    answers.push_back(std::async(std::launch::async, [&run, asker] {
      return run.Ask([asker](ShownReport& shown) {
        return shown.Lines({"Amount", asker % 2 == 1, {}}, 0, 100);
      });
    }));
  }
  std::vector<std::string> texts;
  for (auto& answer : answers) texts.push_back(answer.get());
  for (std::size_t asker = 2; asker < texts.size(); ++asker)
    EXPECT_EQ(texts[asker], texts[asker % 2]);
  EXPECT_NE(texts[0], texts[1]);
}

TEST(Runs, OpensAsManyAsMayBe) {
  Limits limits;
  limits.reports = 2;
  Runs runs(limits);
  const std::string one = runs.Open(test::SalesByParty());
  EXPECT_NE(one, runs.Open(test::SalesByParty()));
  EXPECT_THROW(static_cast<void>(runs.Open(test::SalesByParty())), WrongCall);
  runs.Close(one);
  EXPECT_EQ(runs.Find(one), nullptr);
  EXPECT_NO_THROW(static_cast<void>(runs.Open(test::SalesByParty())));
  EXPECT_EQ(runs.Count(), 2U);
}

TEST(ReportRun, IsAloneWhileNobodyListens) {
  constexpr std::chrono::milliseconds kNone{0}, kMoment{2};
  ReportRun run(test::SalesByParty(), {});
  std::this_thread::sleep_for(kMoment);
  EXPECT_GE(run.AloneFor(), kMoment);
  run.Listen();
  run.Listen();
  run.Leave();
  std::this_thread::sleep_for(kMoment);
  EXPECT_EQ(run.AloneFor(), kNone);
  run.Leave();
  std::this_thread::sleep_for(kMoment);
  EXPECT_GE(run.AloneFor(), kMoment);
}

// The first has a page, the second none; the third has come a moment later.
TEST(Runs, CloseWhatHasBeenAloneForAnother) {
  Limits limits;
  limits.reports = 3;
  limits.spare = std::chrono::milliseconds(0);
  Runs runs(limits);
  const std::string listened = runs.Open(test::SalesByParty());
  runs.Find(listened)->Listen();
  const std::string alone = runs.Open(test::SalesByParty());
  std::this_thread::sleep_for(std::chrono::milliseconds(5));
  const std::string later = runs.Open(test::SalesByParty());
  runs.Find(later)->Listen();
  runs.Find(later)->Leave();
  std::this_thread::sleep_for(std::chrono::milliseconds(5));
  static_cast<void>(runs.Open(test::SalesByParty()));
  EXPECT_EQ(runs.Count(), 3U);
  EXPECT_NE(runs.Find(listened), nullptr);
  EXPECT_EQ(runs.Find(alone), nullptr);
  EXPECT_NE(runs.Find(later), nullptr);
}

TEST(Runs, CloseWhatIsAlone) {
  Limits limits;
  limits.alone = std::chrono::milliseconds(0);
  Runs runs(limits);
  const std::string name = runs.Open(test::SalesByParty());
  while (runs.Count() > 0) std::this_thread::sleep_for(std::chrono::milliseconds(5));
  EXPECT_EQ(runs.Find(name), nullptr);
}

}  // namespace
}  // namespace pstolvane1::viewer
