// Abandon while an engine runs a statement that would go on for hours: on a file and on a server.
#include <chrono>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <thread>

#include "session/books/SampleBooks.h"
#include "session/clsStolvane1.h"
#include "tests/books/BooksOnDisk.h"
#include "tests/server/Server.h"

namespace pstolvane1 {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr const char* kForHours =
    "(select count(*) from godownitem1 as a inner join godownitem1 as b on a.qty <> b.rate + 0.5 "
    "inner join godownitem1 as c on c.qty <> b.rate + a.qty inner join godownitem1 as d on "
    "d.qty <> c.rate) > 0";

class AbandonEngines : public testing::TestWithParam<bool> {
 protected:
  AbandonEngines() {
    if (GetParam()) server_ = std::make_unique<Scratch>();
    books_ = server_ ? server_->ConnectionString() : folder_.File("sample.db");
    books::SampleBooks(books_);
    session_.SetLocale("en_IN");
    session_.SetConnection("", "", books_, False);
    session_.FetchComplete = [this](const RecordsetPtr& rowset, std::int32_t) {
      ++completed_;
      delivered_ = rowset;
    };
  }

  RecordsetPtr Report(Boolean blnReport, const char* condition = "") {
    return session_.Doc_Initial(2, 10, Date::FromYmd(2004, 4, 1), Date::FromYmd(2004, 4, 30),
                                blnReport, 1, False, 0, condition);
  }
  // Whether the next report came right within half a second of then.
  bool NextIsInTime(Clock::time_point then) {
    EXPECT_EQ(Report(True)->RecordCount(), 6);
    const auto took = std::chrono::duration_cast<milliseconds>(Clock::now() - then);
    EXPECT_EQ(Report(False), nullptr);
    const int before = completed_;
    while (session_.Fetching()) (void)WaitForEvents(milliseconds(20));
    EXPECT_EQ(completed_, before + 1);
    EXPECT_EQ(delivered_->RecordCount(), 6);
    RecordProperty("milliseconds", static_cast<int>(took.count()));
    return took < milliseconds(500);
  }
  // Runs work that does not end by itself, abandons it from another thread, and gives when.
  template <typename Work>
  Clock::time_point Broken(Work&& work) {
    Clock::time_point then;
    std::thread other([&] {
      std::this_thread::sleep_for(milliseconds(200));
      then = Clock::now();
      session_.Abandon();
    });
    try {
      work();
      ADD_FAILURE() << "it came to an end";
    } catch (const Error& error) {
      EXPECT_EQ(error.Number(), ErrorNumber::kQueryRefused) << error.Description();
    }
    other.join();
    return then;
  }

  const books::test::Folder folder_;
  std::unique_ptr<Scratch> server_;
  std::string books_;
  clsStolvane1 session_;
  int completed_ = 0;
  RecordsetPtr delivered_;
};

INSTANTIATE_TEST_SUITE_P(OnBothEngines, AbandonEngines, testing::Bool(),
                         [](const auto& server) { return server.param ? "Server" : "File"; });

// A machine that is busy with other things may try again.
template <typename Attempt>
void ExpectInTime(Attempt&& attempt) {
  bool in_time = false;
  for (int i = 0; i < 4 && !in_time; ++i) in_time = attempt();
  EXPECT_TRUE(in_time) << "the next report took more than half a second";
}

TEST_P(AbandonEngines, AFetchInTheBackground) {
  ExpectInTime([&] {
    const int before = completed_;
    EXPECT_EQ(Report(False, kForHours), nullptr);
    (void)WaitForEvents(milliseconds(200));
    EXPECT_TRUE(session_.Fetching());
    const Clock::time_point then = Clock::now();
    session_.Abandon();
    EXPECT_FALSE(session_.Fetching());
    EXPECT_EQ(completed_, before);
    return NextIsInTime(then);
  });
}

TEST_P(AbandonEngines, ACallThatWaitsForItsRows) {
  ExpectInTime([&] { return NextIsInTime(Broken([&] { (void)Report(True, kForHours); })); });
}

TEST_P(AbandonEngines, APlainQuery) {
  ExpectInTime(
      [&] { return NextIsInTime(Broken([&] { (void)session_.POrderTextQuery(kForHours); })); });
}

TEST_P(AbandonEngines, ASortInTheEngine) {
  ExpectInTime([&] {
    return NextIsInTime(Broken([&] {
      const RecordsetPtr rowset = Recordset::New();
      rowset->Open(
          "select a.rate as first, b.rate as second, c.qty as third from godownitem1 as a inner "
          "join godownitem1 as b on a.qty <> b.rate inner join godownitem1 as c on "
          "c.qty <> b.rate order by c.qty * a.rate, b.rate desc",
          session_.GetConnectionObject());
    }));
  });
}

TEST_P(AbandonEngines, AWaitForALock) {
  std::unique_ptr<ServerSession> on_server;
  std::unique_ptr<books::test::Database> on_file;
  if (GetParam()) {
    on_server = std::make_unique<ServerSession>(books_);
  } else {
    on_file = std::make_unique<books::test::Database>(books_);
  }
  const auto write = [&](const char* of_file, const char* of_server) {
    if (on_file) on_file->Execute(of_file);
    if (on_server) (void)on_server->Run(of_server);
  };
  ExpectInTime([&] {
    write("begin exclusive", "begin; lock table \"Desr1\" in access exclusive mode");
    const Clock::time_point then = Broken([&] { (void)Report(True); });
    write("commit", "commit");
    return NextIsInTime(then);
  });
}

}  // namespace
}  // namespace pstolvane1
