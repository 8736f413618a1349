// Eight threads with a session each on one file, beside a writer: whatever state of the books a
// report meets, its figures are those of the same state when nobody writes.
#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <functional>
#include <gtest/gtest.h>
#include <mutex>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "session/books/SampleBooks.h"
#include "session/clsStolvane1.h"
#include "session/rowset/Export.h"
#include "tests/books/BooksOnDisk.h"

namespace pstolvane1 {
namespace {

using Clock = std::chrono::steady_clock;

constexpr unsigned kThreads = 8;
constexpr std::size_t kStates = 4;

// PST_STRESS_SECONDS, or a few.
std::chrono::seconds Duration() {
  const char* const asked = std::getenv("PST_STRESS_SECONDS");
  return std::chrono::seconds(asked == nullptr ? 3 : std::stol(asked));
}

// Every rate and amount is twice as large in the next state, which is exact in both directions.
class Writer {
 public:
  explicit Writer(const std::string& file) : books_(file) {
    books_.Execute("pragma busy_timeout = 60000");
  }
  void GoTo(std::size_t state) {
    std::string factor = "1.0";
    for (; state_ < state; ++state_) factor += " * 2.0";
    for (; state_ > state; --state_) factor += " * 0.5";
    const auto scale = [&](const std::string& table, const std::string& column) {
      return "update " + table + " set " + column + " = " + column + " * " + factor + ";";
    };
    books_.Execute("begin immediate;" + scale("GodownItem1", "Rate") +
                   scale("Desr1", "TotalAmount") + scale("PriceListDiscount1", "Price1") +
                   scale("PriceListDiscount1", "Price2") + "commit");
  }

 private:
  books::test::Database books_;
  std::size_t state_ = 0;
};

class Reader {
 public:
  explicit Reader(const std::string& file) {
    session_.SetLocale("en_IN");
    session_.SetConnection("", "", file, False);
    session_.FetchComplete = [this](const RecordsetPtr& rowset, std::int32_t) {
      delivered_ = rowset;
    };
  }
  ~Reader() { session_.FetchComplete = nullptr; }
  Reader(const Reader&) = delete;
  Reader& operator=(const Reader&) = delete;

  static constexpr std::size_t kReports = 7;

  std::string Read(std::size_t report, Boolean at_once) {
    delivered_ = Ask(report, at_once);
    while (!delivered_) (void)WaitForEvents(std::chrono::milliseconds(20));
    return RowsAsJson(*std::exchange(delivered_, nullptr));
  }

 private:
  RecordsetPtr Ask(std::size_t report, Boolean at_once) {
    const Date from = Date::FromYmd(2004, 4, 1);
    const Date to = Date::FromYmd(2005, 3, 31);
    std::string codes;
    switch (report) {
      case 0:
        return session_.Doc_Initial(2, 10, from, to, at_once);
      case 1:
        return session_.LedgersByCode(2, codes, at_once);
      case 2:
        return session_.MultiplePriceList(2, from, to, 0, -1, -1, at_once, "", "items1.item_id>0");
      case 3:
        return session_.StockDetails_Itemwise(2, from, to, FifoRate, -1, 0, at_once, True, False, 1,
                                              False, True, True, True);
      case 4:
        return session_.StockDetails_Categorywise(2, from, to, LastPurchaseRate, -1, 0, at_once,
                                                  True, False, 1, False, True, True, True);
      case 5:
        return session_.StockDetails_Classwise(2, from, to, AverageRate, -1, 0, at_once, False,
                                               False, 1, False, True, True, True);
      default:
        return session_.StockDetails_Godownwise(2, from, to, standardrate, -1, 0, at_once, False,
                                                False, 1, False, True, True, True);
    }
  }

  clsStolvane1 session_;
  RecordsetPtr delivered_;
};

using Expected = std::array<std::array<std::string, kStates>, Reader::kReports>;

TEST(Stress, EightThreadsBesideAWriterReadWholeStates) {
  const books::test::Folder folder;
  const std::string file = folder.File("books.db");
  books::SampleBooks(file);
  Writer writer(file);
  Expected expected;
  {
    Reader alone(file);
    for (std::size_t state = 0; state < kStates; ++state) {
      writer.GoTo(state);
      for (std::size_t report = 0; report < Reader::kReports; ++report) {
        expected.at(report).at(state) = alone.Read(report, True);
      }
    }
  }
  for (const std::size_t report : {0U, 2U, 3U, 4U, 5U}) {
    EXPECT_NE(expected.at(report)[0], expected.at(report)[1]) << "the states do not differ";
  }

  const Clock::time_point end = Clock::now() + Duration();
  std::atomic<int> reports{0};
  std::mutex mutex;
  std::vector<std::string> wrong;
  std::vector<std::thread> threads;
  for (unsigned seed = 0; seed < kThreads; ++seed) {
    threads.emplace_back([&, seed] {
      std::mt19937 random(seed);
      std::string failure;
      try {
        Reader reader(file);
        while (Clock::now() < end && failure.empty()) {
          const std::size_t report = random() % Reader::kReports;
          const bool at_once = random() % 2 == 0;
          const std::string read = reader.Read(report, at_once ? True : False);
          const auto& states = expected.at(report);
          if (std::find(states.begin(), states.end(), read) == states.end()) {
            failure = "report " + std::to_string(report) + " is of no state: " + read;
          }
          ++reports;
        }
      } catch (const std::exception& error) {
        failure = error.what();
      }
      const std::lock_guard lock(mutex);
      if (!failure.empty()) wrong.push_back(failure);
    });
  }
  int written = 0;
  for (std::mt19937 random(4711); Clock::now() < end; ++written) {
    writer.GoTo(random() % kStates);
    std::this_thread::sleep_for(std::chrono::milliseconds(random() % 30));
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(wrong, std::vector<std::string>());
  EXPECT_GE(reports, int{kThreads});
  EXPECT_GE(written, 2);
  RecordProperty("reports", reports.load());
  RecordProperty("states", written);
  std::printf("%d reports beside %d new states\n", reports.load(), written);
}

}  // namespace
}  // namespace pstolvane1
