// What a stock statement costs, beside stepping its own queries with the bare engine.
//
//   bench_stock [MOVEMENTS [ROUNDS]]      100000 movements and 3 rounds if not given
//
// Both contenders run in turns in this process on the same sample books. The floor steps every
// SELECT that the report sends, in the engine's own text, and touches every column.

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fmt/format.h>
#include <fstream>
#include <optional>
#include <sqlite3.h>
#include <stdexcept>
#include <string>
#include <unistd.h>
#include <vector>

#include "session/books/SampleBooks.h"
#include "session/clsStolvane1.h"
#include "session/data/ShapePlan.h"
#include "session/engine/Engines.h"
#include "session/engine/sqlite/Functions.h"
#include "session/modStolvane1.h"

namespace {

using namespace pstolvane1;
using Clock = std::chrono::steady_clock;

struct Method {
  const char* name;
  enmValuationMethod method;
};
constexpr Method kMethods[] = {
    {"FifoRate", FifoRate},           {"LifoRate", LifoRate},
    {"AverageRate", AverageRate},     {"LastPurchaseRate", LastPurchaseRate},
    {"LastSaleRate", LastSaleRate},   {"standardrate", standardrate},
    {"StandardPrice", StandardPrice}, {"SimpleAvg", SimpleAvg},
};

RecordsetPtr Statement(clsStolvane1& session, enmValuationMethod method) {
  return session.StockDetails_Itemwise(3, Date::FromYmd(2005, 4, 1), Date::FromYmd(2006, 3, 31),
                                       method, -1, 0, True, True, False, 1, False, True, True,
                                       True);
}

void CollectSelects(const shape::Plan& plan, std::vector<std::string>& selects) {
  if (plan.query) selects.push_back(plan.query->select);
  if (plan.groups) CollectSelects(*plan.groups->rows, selects);
  for (const shape::RelationPlan& relation : plan.relations) {
    CollectSelects(*relation.child, selects);
  }
}

// The engine's texts of all SELECTs that a method's statement sends.
std::vector<std::string> SelectsOf(clsStolvane1& session, Provider& books,
                                   enmValuationMethod method) {
  modStolvane1& module = *modStolvane1::OfThisThread();
  std::string* const texts[] = {&module.strSQL, &module.strSQL2, &module.strSQL3, &module.strSQL4};
  for (std::string* text : texts) text->clear();
  (void)Statement(session, method);
  std::vector<std::string> selects;
  for (const std::string* text : texts) {
    if (text->empty()) continue;
    CollectSelects(
        shape::MakePlan(*text, [&](std::string_view select) { return books.Describe(select); }),
        selects);
  }
  for (std::string& select : selects) select = books.Translate(select);
  return selects;
}

void Check(int code, sqlite3* database) {
  if (code != SQLITE_OK && code != SQLITE_DONE) throw std::runtime_error(sqlite3_errmsg(database));
}

std::int64_t Step(sqlite3* database, const std::vector<std::string>& selects) {
  std::int64_t rows = 0;
  double touched = 0;
  for (const std::string& select : selects) {
    sqlite3_stmt* statement = nullptr;
    Check(sqlite3_prepare_v2(database, select.c_str(), -1, &statement, nullptr), database);
    const int columns = sqlite3_column_count(statement);
    while (sqlite3_step(statement) == SQLITE_ROW) {
      ++rows;
      for (int column = 0; column < columns; ++column) {
        if (sqlite3_column_type(statement, column) == SQLITE_TEXT) {
          const unsigned char* const text = sqlite3_column_text(statement, column);
          touched += text[0] + sqlite3_column_bytes(statement, column);
        } else {
          touched += sqlite3_column_double(statement, column);
        }
      }
    }
    Check(sqlite3_finalize(statement), database);
  }
  if (touched == 0.125) fmt::print(" ");  // so that the cells are really read
  return rows;
}

template <typename Work>
double SecondsOf(Work&& work) {
  const auto begin = Clock::now();
  work();
  return std::chrono::duration<double>(Clock::now() - begin).count();
}

// What a process of its own does for PeakOf: connect, write one statement or none, and print the
// most memory it has held, in kilobytes.
void Load(const std::string& path, int method) {
  clsStolvane1 session;
  session.SetConnection("", "", path, False);
  if (method >= 0) (void)Statement(session, kMethods[static_cast<std::size_t>(method)].method);
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with("VmHWM:")) fmt::print("{}\n", std::atoll(line.c_str() + 6));
  }
}

// The most memory, in bytes, of a fresh process that connects and writes one statement; of one
// that only connects for method -1.
double PeakOf(const std::string& path, int method) {
  const std::string program = std::filesystem::read_symlink("/proc/self/exe").string();
  FILE* const pipe = popen(fmt::format("'{}' --load '{}' {}", program, path, method).c_str(), "r");
  if (pipe == nullptr) throw std::runtime_error("no process to measure memory with");
  std::int64_t kilobytes = 0;
  const int read = std::fscanf(pipe, "%ld", &kilobytes);
  if (pclose(pipe) != 0 || read != 1) throw std::runtime_error("the memory was not measured");
  return static_cast<double>(kilobytes) * 1024;
}

void Run(std::int64_t movements, int rounds) {
  std::string folder = (std::filesystem::temp_directory_path() / "bench_stock_XXXXXX").string();
  if (mkdtemp(folder.data()) == nullptr) throw std::runtime_error("no temporary folder");
  const std::string path = folder + "/books.db";
  books::SampleBooks(path, movements);

  const double nothing = PeakOf(path, -1);
  std::vector<double> peaks;
  for (int method = 0; method < static_cast<int>(std::size(kMethods)); ++method) {
    peaks.push_back(PeakOf(path, method) - nothing);
  }

  clsStolvane1 session;
  session.SetConnection("", "", path, False);
  const std::shared_ptr<Provider> books = OpenDatabase(path, std::chrono::minutes(2));
  sqlite3* bare = nullptr;
  Check(sqlite3_open_v2(path.c_str(), &bare, SQLITE_OPEN_READONLY | SQLITE_OPEN_NOMUTEX, nullptr),
        bare);
  Check(sqlite3_exec(bare, "PRAGMA cache_size = -32000; PRAGMA temp_store = MEMORY", nullptr,
                     nullptr, nullptr),
        bare);
  std::optional<Error> failure;
  sqlite::RegisterFunctions(bare, failure);

  fmt::print("{} movements, best of {} rounds\n", movements, rounds);
  fmt::print("{:<18}{:>12}{:>10}{:>10}{:>10}{:>8}{:>12}{:>12}\n", "method", "source rows", "lines",
             "floor s", "report s", "ratio", "lines/s", "bytes/row");
  for (std::size_t i = 0; i < std::size(kMethods); ++i) {
    const Method& one = kMethods[i];
    const std::vector<std::string> selects = SelectsOf(session, *books, one.method);
    double floor = 1e9, report = 1e9;
    std::int64_t rows = 0, lines = 0;
    for (int round = 0; round < rounds; ++round) {
      floor = std::min(floor, SecondsOf([&] { rows = Step(bare, selects); }));
      report = std::min(report,
                        SecondsOf([&] { lines = Statement(session, one.method)->RecordCount(); }));
    }
    fmt::print("{:<18}{:>12}{:>10}{:>10.3f}{:>10.3f}{:>8.2f}{:>12.0f}{:>12.0f}\n", one.name, rows,
               lines, floor, report, report / floor, static_cast<double>(lines) / report,
               peaks[i] / static_cast<double>(rows));
  }
  sqlite3_close(bare);
  std::filesystem::remove_all(folder);
}

}  // namespace

int main(int count, char** arguments) {
  try {
    if (count == 4 && std::string_view(arguments[1]) == "--load") {
      Load(arguments[2], std::atoi(arguments[3]));
      return 0;
    }
    Run(count > 1 ? std::atoll(arguments[1]) : 100'000, count > 2 ? std::atoi(arguments[2]) : 3);
    return 0;
  } catch (const std::exception& error) {
    fmt::print(stderr, "bench_stock: {}\n", error.what());
    return 1;
  }
}
