// What it costs to open a query into a rowset, beside stepping it with the bare engine.
//
//   bench_fetch [ROWS [ROUNDS]]      1000000 rows and 9 rounds if not given
//
// Both contenders run in turns in this process on the same books, with the same statement; a digest
// of the cells shows that they read the same.

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fmt/format.h>
#include <sqlite3.h>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "session/data/Recordset.h"
#include "session/engine/Engines.h"

namespace {

using Clock = std::chrono::steady_clock;

// Ten columns as a stock movement with its document and its item has them.
constexpr const char* kSchema =
    "CREATE TABLE Movements (Movement_id INTEGER PRIMARY KEY, Item_id INTEGER, MoveDate DATE,"
    " IsAdded BIT, Qty REAL, Rate DECIMAL(19,4), Amount DECIMAL(19,4), RefNo VARCHAR(12),"
    " ItemName VARCHAR(40), Godown_id INTEGER)";
constexpr const char* kRows =
    "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < ?1)"
    "INSERT INTO Movements SELECT i, i * 7919 % 2500, date('2002-04-01', (i % 1096) || ' days'),"
    " -(i % 3 = 0), i % 97 + 0.5, (i % 9973) / 4.0, CASE WHEN i % 11 THEN (i % 99991) / 8.0 END,"
    " 'INV/' || i, 'Item of the stock no ' || (i * 7919 % 2500), i % 12 FROM n";
constexpr const char* kSelect =
    "SELECT Movement_id, Item_id, MoveDate, IsAdded, Qty, Rate, Amount, RefNo, ItemName, Godown_id "
    "FROM Movements";

struct Digest {
  std::int64_t rows = 0;
  std::int64_t whole = 0;
  double real = 0;
  std::int64_t text = 0;
  std::int64_t nulls = 0;
  friend bool operator==(const Digest&, const Digest&) = default;
};

void Check(int code, sqlite3* database) {
  if (code != SQLITE_OK && code != SQLITE_DONE) throw std::runtime_error(sqlite3_errmsg(database));
}

void MakeBooks(const std::string& path, std::int64_t rows) {
  sqlite3* database = nullptr;
  Check(sqlite3_open(path.c_str(), &database), database);
  Check(sqlite3_exec(database, kSchema, nullptr, nullptr, nullptr), database);
  sqlite3_stmt* insert = nullptr;
  Check(sqlite3_prepare_v2(database, kRows, -1, &insert, nullptr), database);
  sqlite3_bind_int64(insert, 1, rows);
  Check(sqlite3_step(insert), database);
  sqlite3_finalize(insert);
  sqlite3_close(database);
}

// The bare engine: every column of every row is asked for as what it is.
Digest Step(sqlite3* database, const std::string& text) {
  sqlite3_stmt* statement = nullptr;
  Check(sqlite3_prepare_v2(database, text.c_str(), -1, &statement, nullptr), database);
  Digest digest;
  const auto whole = [&](int column) { digest.whole += sqlite3_column_int64(statement, column); };
  const auto real = [&](int column) {
    if (sqlite3_column_type(statement, column) == SQLITE_NULL) {
      ++digest.nulls;
    } else {
      digest.real += sqlite3_column_double(statement, column);
    }
  };
  const auto words = [&](int column) {
    const unsigned char* cell = sqlite3_column_text(statement, column);
    const int size = sqlite3_column_bytes(statement, column);
    digest.text += size > 0 ? size + cell[size - 1] : 0;
  };
  while (sqlite3_step(statement) == SQLITE_ROW) {
    ++digest.rows;
    whole(0);
    whole(1);
    words(2);
    whole(3);
    real(4);
    real(5);
    real(6);
    words(7);
    words(8);
    whole(9);
  }
  Check(sqlite3_finalize(statement), database);
  return digest;
}

Digest DigestOf(pstolvane1::Recordset& rowset) {
  using pstolvane1::ColumnHandle;
  const char* const names[] = {"Movement_id", "Item_id", "MoveDate", "IsAdded",  "Qty",
                               "Rate",        "Amount",  "RefNo",    "ItemName", "Godown_id"};
  std::vector<ColumnHandle> columns;
  for (const char* name : names) columns.push_back(rowset.Column(name));
  Digest digest;
  const auto words = [&](std::string_view cell) {
    digest.text += cell.empty() ? 0
                                : static_cast<std::int64_t>(cell.size()) +
                                      static_cast<unsigned char>(cell.back());
  };
  for (; !rowset.Eof(); rowset.MoveNext()) {
    ++digest.rows;
    digest.whole += rowset.Int32(columns[0]) + rowset.Int32(columns[1]) + rowset.Int32(columns[9]) -
                    (rowset.Flag(columns[3]) ? 1 : 0);
    words(rowset.DateOf(columns[2]).ToIso());
    for (const std::size_t column : {4U, 5U, 6U}) {
      if (rowset.IsNull(columns[column])) {
        ++digest.nulls;
      } else {
        digest.real += rowset.Double(columns[column]);
      }
    }
    words(rowset.Text(columns[7]));
    words(rowset.Text(columns[8]));
  }
  return digest;
}

template <typename Work>
double MillisecondsOf(Work&& work) {
  const auto begin = Clock::now();
  work();
  return std::chrono::duration<double, std::milli>(Clock::now() - begin).count();
}

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

int Run(std::int64_t rows, int rounds) {
  std::string folder = (std::filesystem::temp_directory_path() / "bench_fetch_XXXXXX").string();
  if (mkdtemp(folder.data()) == nullptr) throw std::runtime_error("no temporary folder");
  const std::string path = folder + "/books.db";
  MakeBooks(path, rows);

  const auto connection = pstolvane1::NewConnection();
  connection->Open(path);
  const std::string text = connection->Translate(kSelect);
  sqlite3* bare = nullptr;
  Check(sqlite3_open_v2(path.c_str(), &bare, SQLITE_OPEN_READONLY | SQLITE_OPEN_NOMUTEX, nullptr),
        bare);
  // The room for pages that the library gives itself.
  Check(sqlite3_exec(bare, "PRAGMA cache_size = -8000", nullptr, nullptr, nullptr), bare);

  Digest stepped;
  Digest fetched;
  std::size_t bytes = 0;
  std::vector<double> step_times;
  std::vector<double> fetch_times;
  for (int round = 0; round < rounds; ++round) {
    step_times.push_back(MillisecondsOf([&] { stepped = Step(bare, text); }));
    auto rowset = pstolvane1::Recordset::New();
    fetch_times.push_back(MillisecondsOf([&] { rowset->Open(kSelect, connection); }));
    bytes = rowset->MemoryUsed();
    if (round == 0) fetched = DigestOf(*rowset);
  }
  sqlite3_close(bare);
  std::filesystem::remove_all(folder);

  const double step = Median(step_times);
  const double fetch = Median(fetch_times);
  fmt::print("{} rows of ten columns, median of {} rounds\n", rows, rounds);
  fmt::print("bare engine {:8.1f} ms\nrowset      {:8.1f} ms\n", step, fetch);
  fmt::print("ratio       {:8.2f}     at most 1.30\n", fetch / step);
  fmt::print("bytes a row {:8.1f}     at most 120\n",
             static_cast<double>(bytes) / static_cast<double>(rows));
  if (!(stepped == fetched)) {
    fmt::print(stderr, "the contenders did not read the same cells\n");
    return 1;
  }
  return 0;
}

}  // namespace

int main(int count, char** arguments) {
  try {
    const std::int64_t rows = count > 1 ? std::atoll(arguments[1]) : 1000000;
    const int rounds = count > 2 ? std::atoi(arguments[2]) : 9;
    return Run(std::max<std::int64_t>(rows, 1), std::max(rounds, 1));
  } catch (const std::exception& error) {
    fmt::print(stderr, "bench_fetch: {}\n", error.what());
    return 1;
  }
}
