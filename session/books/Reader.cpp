#include "session/books/Reader.h"

#include <memory>
#include <sqlite3.h>

#include "session/data/Error.h"

namespace pstolvane1::books {
namespace {

constexpr int kWaitMilliseconds = 10'000;  // for whoever writes to the books

struct Finalize {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Prepared = std::unique_ptr<sqlite3_stmt, Finalize>;

Prepared Prepare(sqlite3* database, const std::string& select) {
  sqlite3_stmt* statement = nullptr;
  sqlite3_prepare_v2(database, select.c_str(), -1, &statement, nullptr);
  return Prepared(statement);
}

}  // namespace

Reader::Reader(const std::string& path) : path_(path) {
  const int flags = SQLITE_OPEN_READONLY | SQLITE_OPEN_NOMUTEX;
  const bool opened = sqlite3_open_v2(path.c_str(), &database_, flags, nullptr) == SQLITE_OK;
  if (opened) sqlite3_busy_timeout(database_, kWaitMilliseconds);
  // The state is taken by the first reading in a transaction.
  if (!opened || sqlite3_exec(database_, "BEGIN; SELECT count(*) FROM sqlite_master", nullptr,
                              nullptr, nullptr) != SQLITE_OK) {
    const std::string words = database_ ? sqlite3_errmsg(database_) : "out of memory";
    sqlite3_close(database_);
    throw Error(ErrorNumber::kConnection, "cannot open the books \"" + path + "\": " + words);
  }
}

Reader::~Reader() { sqlite3_close(database_); }

void Reader::Fail() {
  throw Error(ErrorNumber::kConnection,
              "cannot read the books \"" + path_ + "\": " + sqlite3_errmsg(database_));
}

std::vector<Reader::Row> Reader::Rows(const std::string& select) {
  const Prepared statement = Prepare(database_, select);
  if (!statement) Fail();
  std::vector<Row> rows;
  int result = sqlite3_step(statement.get());
  for (; result == SQLITE_ROW; result = sqlite3_step(statement.get())) {
    Row& row = rows.emplace_back();
    for (int i = 0; i < sqlite3_column_count(statement.get()); ++i) {
      const auto* text = sqlite3_column_text(statement.get(), i);
      const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement.get(), i));
      row.push_back(text ? std::optional(std::string(reinterpret_cast<const char*>(text), size))
                         : std::nullopt);
    }
  }
  if (result != SQLITE_DONE) Fail();
  return rows;
}

bool Reader::Understands(const std::string& select) {
  return Prepare(database_, select) != nullptr;
}

}  // namespace pstolvane1::books
