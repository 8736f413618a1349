#include "session/books/Writer.h"

#include <algorithm>
#include <array>
#include <sqlite3.h>
#include <utility>

#include "session/books/Schema.h"
#include "session/data/Error.h"

namespace pstolvane1::books {
namespace {

std::array<char, 10> IsoChars(Day day) {
  const std::chrono::year_month_day date(day);
  const auto year = static_cast<unsigned>(static_cast<int>(date.year()));
  const auto month = static_cast<unsigned>(date.month());
  const auto number = static_cast<unsigned>(date.day());
  const auto digit = [](unsigned value) { return static_cast<char>('0' + value % 10); };
  return {digit(year / 1000),
          digit(year / 100),
          digit(year / 10),
          digit(year),
          '-',
          digit(month / 10),
          digit(month),
          '-',
          digit(number / 10),
          digit(number)};
}

[[noreturn]] void Fail(const std::string& name, sqlite3* database) {
  throw Error(ErrorNumber::kConnection,
              "cannot write the books \"" + name +
                  "\": " + (database ? sqlite3_errmsg(database) : "out of memory"));
}

}  // namespace

std::string IsoText(Day day) {
  const auto text = IsoChars(day);
  return {text.data(), text.size()};
}

void Writer::Open(int flags) {
  if (sqlite3_open_v2(path_.c_str(), &database_, flags | SQLITE_OPEN_NOMUTEX, nullptr) !=
      SQLITE_OK) {
    const std::string words = database_ ? sqlite3_errmsg(database_) : "out of memory";
    sqlite3_close(database_);
    throw Error(ErrorNumber::kConnection, "cannot write the books \"" + name_ + "\": " + words);
  }
}

// A file that fails on the way is thrown away whole, so it needs no journal; the page size is fixed
// so that the same rows give the same bytes.
Writer::Writer(const std::string& path, std::string name) : path_(path), name_(std::move(name)) {
  Open(SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
  Begin({"PRAGMA page_size = 4096", "PRAGMA journal_mode = OFF", "PRAGMA synchronous = OFF",
         "PRAGMA cache_size = -131072", "BEGIN"});
}

Writer::Writer(const std::string& path, Existing) : path_(path), name_(path) {
  Open(SQLITE_OPEN_READWRITE);
  sqlite3_busy_timeout(database_, 10'000);
  Begin({"BEGIN IMMEDIATE"});
}

// A constructor that throws does not run its destructor.
void Writer::Begin(std::initializer_list<const char*> statements) {
  try {
    for (const char* statement : statements) Execute(statement);
  } catch (...) {
    sqlite3_close(database_);
    throw;
  }
}

Writer::~Writer() { sqlite3_close(database_); }

void Writer::Execute(const std::string& statement) {
  if (sqlite3_exec(database_, statement.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
    Fail(name_, database_);
  }
}

void Writer::CreateTables() {
  for (const Table& table : Tables()) Execute(SqliteCreateTable(table));
}

void Writer::CreateIndexes(const Table& table) {
  for (const Index& index : table.indexes) Execute(SqliteCreateIndex(table, index));
}

void Writer::Finish() {
  Execute("COMMIT");
  // Statements of the caller may still be alive; the file is closed with the last of them.
  sqlite3_close_v2(database_);
  database_ = nullptr;
}

Statement::Statement(Writer& writer, const std::string& text) : writer_(writer) { Prepare(text); }

Statement::Statement(Writer& writer, std::string_view table, std::string_view columns)
    : writer_(writer) {
  std::string text =
      "INSERT INTO " + std::string(table) + " (" + std::string(columns) + ") VALUES (?";
  const auto commas = std::ranges::count(columns, ',');
  for (auto i = commas; i > 0; --i) text += ", ?";
  Prepare(text + ")");
}

Statement::~Statement() { sqlite3_finalize(statement_); }

void Statement::Prepare(const std::string& text) {
  Check(sqlite3_prepare_v3(writer_.Raw(), text.c_str(), -1, SQLITE_PREPARE_PERSISTENT, &statement_,
                           nullptr));
}

void Statement::Check(int result) const {
  if (result != SQLITE_OK) {
    throw Error(ErrorNumber::kConnection,
                std::string("cannot write the books: ") + sqlite3_errmsg(writer_.Raw()));
  }
}

void Statement::Bind(int place, std::nullopt_t) { Check(sqlite3_bind_null(statement_, place)); }

void Statement::Bind(int place, double value) {
  Check(sqlite3_bind_double(statement_, place, value));
}

void Statement::Bind(int place, Currency value) { Bind(place, value.ToDouble()); }

void Statement::Bind(int place, Day value) {
  const auto text = IsoChars(value);
  Check(sqlite3_bind_text(statement_, place, text.data(), static_cast<int>(text.size()),
                          SQLITE_TRANSIENT));
}

void Statement::Bind(int place, std::string_view value) {
  Check(sqlite3_bind_text64(statement_, place, value.data() ? value.data() : "", value.size(),
                            SQLITE_STATIC, SQLITE_UTF8));
}

void Statement::BindWhole(int place, std::int64_t value) {
  Check(sqlite3_bind_int64(statement_, place, value));
}

void Statement::BindCopy(int place, std::string_view value) {
  Check(sqlite3_bind_text64(statement_, place, value.data(), value.size(), SQLITE_TRANSIENT,
                            SQLITE_UTF8));
}

void Statement::Step(int count) {
  if (!TryStep(count)) Check(SQLITE_CONSTRAINT);
}

bool Statement::TryStep(int count) {
  if (count != sqlite3_bind_parameter_count(statement_)) {
    throw Error(ErrorNumber::kArgumentOutOfRange,
                std::string("a row has ") + std::to_string(count) +
                    " values, but the statement \"" + sqlite3_sql(statement_) +
                    "\" takes another number");
  }
  sqlite3_step(statement_);
  const int result = sqlite3_reset(statement_);
  if (result == SQLITE_CONSTRAINT) return false;
  Check(result);
  return true;
}

}  // namespace pstolvane1::books
