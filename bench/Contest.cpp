#include "Contest.h"

#include <algorithm>
#include <ctime>
#include <fmt/format.h>
#include <limits>
#include <stdexcept>

#include "BareEngine.h"
#include "session/books/BooksFile.h"

namespace pstolvane1::bench {
namespace {

// Of all threads, so that what others do on the machine does not count.
double ProcessorSeconds() {
  timespec now{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

class Best {
 public:
  template <typename Work>
  void Run(Work&& work) {
    const double begin = ProcessorSeconds();
    work();
    seconds_ = std::min(seconds_, ProcessorSeconds() - begin);
  }
  [[nodiscard]] double Seconds() const { return seconds_; }

 private:
  double seconds_ = std::numeric_limits<double>::max();
};

void Run(const Contests& contests, std::int64_t size, int rounds, const std::string& only) {
  const books::PassingBooks books;
  contests.make_books(books.Path(), size);
  clsStolvane1 session;
  session.SetConnection("", "", books.Path(), False);
  session.SetLocale("en_IN");
  const RecordsetPtr items = Recordset::New();
  items->Open("select item_id as itemnew_id, itemname, itempartno, 'Nos' as uomname from items1",
              session.GetConnectionObject());
  BareEngine bare(books.Path());
  fmt::print("{} {}, best of {} rounds, in seconds of processor time; ratio is report to floor\n",
             size, contests.unit, rounds);
  fmt::print("{:<46}{:>12}{:>10}{:>9}{:>9}{:>7}\n", "report", "source rows", "lines", "floor",
             "report", "ratio");
  for (const Contest& contest : contests.all(items)) {
    if (!contest.name.starts_with(only)) continue;
    Best floor, report;
    std::int64_t rows = 0;
    RecordsetPtr written;
    for (int round = 0; round < rounds; ++round) {
      floor.Run([&] { rows = bare.Step(contest.by_hand); });
      report.Run([&] { written = contest.report(session); });
    }
    fmt::print("{:<46}{:>12}{:>10}{:>9.3f}{:>9.3f}{:>7.2f}\n", contest.name, rows,
               written->RecordCount(), floor.Seconds(), report.Seconds(),
               report.Seconds() / floor.Seconds());
    std::fflush(stdout);
  }
}

}  // namespace

int RunContests(const Contests& contests, int count, char** arguments) {
  try {
    Run(contests, count > 1 ? std::atoll(arguments[1]) : contests.size,
        count > 2 ? std::atoi(arguments[2]) : 3, count > 3 ? arguments[3] : "");
    return 0;
  } catch (const std::exception& error) {
    fmt::print(stderr, "{}: {}\n", contests.program, error.what());
    return 1;
  }
}

}  // namespace pstolvane1::bench
