// What a stock statement costs, beside the cheapest statements that give its figures, and beside
// what one would write without the library: a Python walk, and window functions.
//
//   bench_stock [MOVEMENTS|FILE [ROUNDS [METHOD...]]]
//
// 100000 movements, 3 rounds and all methods if not given. A FILE has sample books already. All
// contenders run in turns in one call on the same books, in seconds of the processor. The floor
// steps the statements of floor/, which a person would write for the method, and touches every
// column; "own" steps the SELECTs that the report sends; "wall" is how long one waits for the
// report. The walk and the window functions reckon the closing value alone, which stands beside the
// report's.

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fmt/format.h>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "../BareEngine.h"
#include "Contenders.h"
#include "Statements.h"
#include "session/books/BooksFile.h"
#include "session/books/SampleBooks.h"
#include "session/clsStolvane1.h"
#include "session/engine/Engines.h"

namespace {

using namespace pstolvane1;
using namespace pstolvane1::bench;

std::int64_t Step(BareEngine& bare, const std::vector<std::string>& selects) {
  std::int64_t rows = 0;
  for (const std::string& select : selects) rows += bare.Step(select);
  return rows;
}

// The total of the statement, from its last line's text.
double ClosingOf(const RecordsetPtr& statement) {
  statement->MoveLast();
  std::string digits;
  for (const char c : statement->Collect("TotalValue").ToText()) {
    if ((c >= '0' && c <= '9') || c == '.' || c == '-') digits += c;
  }
  return std::atof(digits.c_str());
}

void PrintPeak() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with("VmHWM:")) fmt::print("{}\n", std::atoll(line.c_str() + 6));
  }
}

// What a process of its own does for PeakOf: write one statement, or step the SELECTs of a file,
// one a line, and print the most memory it has held, in kilobytes.
void Load(const std::string& what, const std::string& path, const std::string& work) {
  if (what == "--write") {
    clsStolvane1 session;
    session.SetConnection("", "", path, False);
    (void)Statement(session, kMethods[static_cast<std::size_t>(std::stoi(work))].method);
    PrintPeak();
  } else {
    BareEngine bare(path);
    std::vector<std::string> selects;
    std::ifstream file(work);
    for (std::string line; std::getline(file, line);) selects.push_back(line);
    (void)Step(bare, selects);
    PrintPeak();
  }
}

// The most memory, in bytes, of a fresh process that does one piece of work.
double PeakOf(const std::string& what, const std::string& path, const std::string& work) {
  const std::string program = std::filesystem::read_symlink("/proc/self/exe").string();
  std::int64_t kilobytes = 0;
  ReadFrom(fmt::format("'{}' {} '{}' '{}'", program, what, path, work), "%ld", &kilobytes);
  return static_cast<double>(kilobytes) * 1024;
}

struct Peaks {
  double floor, report;
};

Peaks PeaksOf(const std::string& path, std::size_t method,
              const std::vector<std::string>& selects) {
  const std::string file = path + ".selects";
  std::ofstream out(file);
  for (std::string select : selects) {
    std::replace(select.begin(), select.end(), '\n', ' ');
    out << select << '\n';
  }
  out.close();
  const Peaks peaks{PeakOf("--step", path, file), PeakOf("--write", path, std::to_string(method))};
  std::filesystem::remove(file);
  return peaks;
}

void Run(const std::string& path, int rounds, const std::vector<std::string>& methods) {
  clsStolvane1 session;
  session.SetConnection("", "", path, False);
  const std::shared_ptr<Provider> books = OpenDatabase(path, std::chrono::minutes(2));
  BareEngine bare(path);
  session.SetLocale("en_US");
  fmt::print("best of {} rounds, in seconds of the processor\n", rounds);
  fmt::print("{:<18}{:>12}{:>8}{:>8}{:>8}{:>8}{:>7}{:>8}{:>9}", "method", "source rows", "lines",
             "floor", "own", "report", "ratio", "wall", "lines/s");
  fmt::print("{:>10}{:>11}{:>12}", "report MB", "bytes/row", "bytes/line");
  fmt::print("{:>9}{:>7}{:>9}{:>17}{:>17}{:>17}\n", "Python", "ratio", "windows", "closing",
             "in Python", "in SQL");
  const auto faster = [](const Answer& a, const Answer& b) { return a.seconds < b.seconds; };
  for (std::size_t i = 0; i < std::size(kMethods); ++i) {
    const Method& one = kMethods[i];
    if (!methods.empty() && std::ranges::find(methods, one.name) == methods.end()) continue;
    const std::vector<std::string> selects = SelectsOf(session, *books, one.method);
    const std::vector<std::string> cheapest = FloorOf(one.name, Engine::kFile);
    double floor = 1e9, own = 1e9, report = 1e9, wall = 1e9;
    Answer walked, windows;
    std::int64_t rows = 0;
    RecordsetPtr statement;
    for (int round = 0; round < rounds; ++round) {
      floor = std::min(floor, ProcessorSecondsOf([&] { Step(bare, cheapest); }));
      own = std::min(own, ProcessorSecondsOf([&] { rows = Step(bare, selects); }));
      const auto write = [&] { statement = Statement(session, one.method); };
      report =
          std::min(report, ProcessorSecondsOf([&] { wall = std::min(wall, SecondsOf(write)); }));
      windows = std::min(windows, InSql(bare.Raw(), one.name), faster);
      walked = std::min(walked, InPython(path, one.name), faster);
    }
    const std::int64_t lines = statement->RecordCount();
    const Peaks peaks = PeaksOf(path, i, selects);
    fmt::print("{:<18}{:>12}{:>8}{:>8.3f}{:>8.3f}{:>8.3f}{:>7.2f}{:>8.3f}{:>9.0f}", one.name, rows,
               lines, floor, own, report, report / floor, wall,
               static_cast<double>(lines) / report);
    fmt::print("{:>10.1f}{:>11.0f}{:>12.0f}", peaks.report / 1e6,
               (peaks.report - peaks.floor) / static_cast<double>(rows),
               static_cast<double>(statement->MemoryUsed()) / static_cast<double>(lines));
    fmt::print("{:>9.3f}{:>7.2f}{:>9.3f}{:>17.2f}{:>17.2f}{:>17.2f}\n", walked.seconds,
               report / walked.seconds, windows.seconds, ClosingOf(statement), walked.value,
               windows.value);
    std::fflush(stdout);
  }
}

void RunOnNewBooks(std::int64_t movements, int rounds, const std::vector<std::string>& methods) {
  const books::PassingBooks books;
  books::SampleBooks(books.Path(), movements);
  fmt::print("{} movements, ", movements);
  Run(books.Path(), rounds, methods);
}

}  // namespace

int main(int count, char** arguments) {
  try {
    const std::vector<std::string> told(arguments + 1, arguments + count);
    if (!told.empty() && told[0].starts_with("--")) {
      Load(told.at(0), told.at(1), told.at(2));
      return 0;
    }
    const std::string books = told.empty() ? "100000" : told[0];
    const int rounds = told.size() > 1 ? std::stoi(told[1]) : 3;
    const std::vector<std::string> methods(told.begin() + std::min<std::ptrdiff_t>(count - 1, 2),
                                           told.end());
    if (std::filesystem::exists(books)) {
      Run(books, rounds, methods);
    } else {
      RunOnNewBooks(std::stoll(books), rounds, methods);
    }
    return 0;
  } catch (const std::exception& error) {
    fmt::print(stderr, "bench_stock: {}\n", error.what());
    return 1;
  }
}
