#include "BareEngine.h"

#include <fmt/format.h>
#include <stdexcept>

#include "session/engine/sqlite/Functions.h"

namespace pstolvane1::bench {
namespace {

void CheckCode(int code, sqlite3* database) {
  if (code != SQLITE_OK) throw std::runtime_error(sqlite3_errmsg(database));
}

}  // namespace

BareEngine::BareEngine(const std::string& path) {
  CheckCode(sqlite3_open_v2(path.c_str(), &database_, SQLITE_OPEN_READONLY | SQLITE_OPEN_NOMUTEX,
                            nullptr),
            database_);
  CheckCode(sqlite3_exec(database_, "PRAGMA cache_size = -32000", nullptr, nullptr, nullptr),
            database_);
  sqlite::RegisterFunctions(database_, failure_);
}

BareEngine::~BareEngine() { sqlite3_close(database_); }

std::int64_t BareEngine::Step(const std::string& select) {
  std::int64_t rows = 0;
  double touched = 0;
  sqlite3_stmt* statement = nullptr;
  CheckCode(sqlite3_prepare_v2(database_, select.c_str(), -1, &statement, nullptr), database_);
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
  CheckCode(sqlite3_finalize(statement), database_);
  if (touched == 0.125) fmt::print(" ");  // so that the cells are really read
  return rows;
}

}  // namespace pstolvane1::bench
