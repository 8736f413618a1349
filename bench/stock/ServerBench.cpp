// What a stock statement costs on a PostgreSQL server, beside stepping the cheapest statements that
// give its figures with libpq.
//
//   bench_server CONNECTION [MOVEMENTS [ROUNDS]]      1000000 movements and 3 rounds if not given
//
// All run in turns in one call on the same sample books, which are made in a schema of their own.
// The floor sends the statements of floor/server, one after another in one session, takes their
// rows in binary one by one, and touches every column; "own" does the same with the SELECTs that
// the report sends. The report is made at once, and by fetching its queries side by side.

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <fmt/format.h>
#include <libpq-fe.h>
#include <stdexcept>
#include <string>
#include <unistd.h>
#include <vector>

#include "Statements.h"
#include "session/books/SampleBooks.h"

namespace {

using namespace pstolvane1;
using namespace pstolvane1::bench;
using Clock = std::chrono::steady_clock;

// The bare client, with the library's own settings.
class Bare {
 public:
  explicit Bare(const std::string& connection) : connection_(PQconnectdb(connection.c_str())) {
    if (PQstatus(connection_) != CONNECTION_OK)
      throw std::runtime_error(PQerrorMessage(connection_));
    Run("SET client_min_messages = error");
  }
  ~Bare() { PQfinish(connection_); }
  Bare(const Bare&) = delete;
  Bare& operator=(const Bare&) = delete;

  void Run(const std::string& statement) {
    PGresult* result = PQexec(connection_, statement.c_str());
    const bool failed = PQresultStatus(result) == PGRES_FATAL_ERROR;
    PQclear(result);
    if (failed) throw std::runtime_error(PQerrorMessage(connection_));
  }

  std::int64_t Step(const std::vector<std::string>& selects) {
    std::int64_t rows = 0;
    std::int64_t touched = 0;
    for (const std::string& select : selects) {
      if (PQsendQueryParams(connection_, select.c_str(), 0, nullptr, nullptr, nullptr, nullptr,
                            1) == 0 ||
          PQsetSingleRowMode(connection_) == 0) {
        throw std::runtime_error(PQerrorMessage(connection_));
      }
      while (PGresult* result = PQgetResult(connection_)) {
        if (PQresultStatus(result) == PGRES_FATAL_ERROR) {
          throw std::runtime_error(PQresultErrorMessage(result));
        }
        const int columns = PQnfields(result);
        for (int row = 0; row < PQntuples(result); ++row) {
          ++rows;
          for (int column = 0; column < columns; ++column) {
            const int size = PQgetlength(result, row, column);
            touched += size > 0 ? *PQgetvalue(result, row, column) + size : 1;
          }
        }
        PQclear(result);
      }
    }
    if (touched == 1) fmt::print(" ");  // so that the cells are really read
    return rows;
  }

 private:
  PGconn* connection_;
};

template <typename Work>
double SecondsOf(Work&& work) {
  const auto begin = Clock::now();
  work();
  return std::chrono::duration<double>(Clock::now() - begin).count();
}

// By the asynchronous path, whose queries run beside each other.
RecordsetPtr Fetched(clsStolvane1& session, enmValuationMethod method) {
  RecordsetPtr statement;
  session.FetchComplete = [&](const RecordsetPtr& rowset, std::int32_t) { statement = rowset; };
  (void)Statement(session, method, False);
  while (!statement) (void)WaitForEvents(std::chrono::milliseconds(100));
  session.FetchComplete = nullptr;
  return statement;
}

void Run(const std::string& server, std::int64_t movements, int rounds) {
  const std::string schema = "bench_" + std::to_string(getpid());
  const std::string connection = server + " options='-c search_path=" + schema + " -c jit=off'";
  Bare bare(connection);
  bare.Run("CREATE SCHEMA " + schema);
  books::SampleBooks(connection, movements);
  clsStolvane1 session;
  session.SetConnection("", "", connection, False);
  session.SetLocale("en_US");
  const std::shared_ptr<Provider> books = OpenDatabase(connection, std::chrono::minutes(2));
  fmt::print("{} movements, best of {} rounds, in seconds; the ratios are to the floor\n",
             movements, rounds);
  fmt::print("{:<18}{:>8}{:>12}{:>8}{:>8}{:>8}{:>9}{:>7}{:>9}{:>7}\n", "method", "queries",
             "source rows", "lines", "floor", "own", "at once", "ratio", "fetched", "ratio");
  for (const Method& one : kMethods) {
    const std::vector<std::string> selects = SelectsOf(session, *books, one.method);
    const std::vector<std::string> cheapest = FloorOf(one.name, Engine::kServer);
    double floor = 1e9, own = 1e9, at_once = 1e9, fetched = 1e9;
    std::int64_t rows = 0;
    RecordsetPtr statement;
    for (int round = 0; round < rounds; ++round) {
      floor = std::min(floor, SecondsOf([&] { bare.Step(cheapest); }));
      own = std::min(own, SecondsOf([&] { rows = bare.Step(selects); }));
      at_once = std::min(at_once, SecondsOf([&] { statement = Statement(session, one.method); }));
      fetched = std::min(fetched, SecondsOf([&] { statement = Fetched(session, one.method); }));
    }
    fmt::print("{:<18}{:>8}{:>12}{:>8}{:>8.3f}{:>8.3f}{:>9.3f}{:>7.2f}{:>9.3f}{:>7.2f}\n", one.name,
               selects.size(), rows, statement->RecordCount(), floor, own, at_once, at_once / floor,
               fetched, fetched / floor);
    std::fflush(stdout);
  }
  bare.Run("DROP SCHEMA " + schema + " CASCADE");
}

}  // namespace

int main(int count, char** arguments) {
  try {
    if (count < 2) throw std::runtime_error("usage: bench_server CONNECTION [MOVEMENTS [ROUNDS]]");
    Run(arguments[1], count > 2 ? std::atoll(arguments[2]) : 1'000'000,
        count > 3 ? std::atoi(arguments[3]) : 3);
    return 0;
  } catch (const std::exception& error) {
    fmt::print(stderr, "bench_server: {}\n", error.what());
    return 1;
  }
}
