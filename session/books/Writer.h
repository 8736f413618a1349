// Writing to a file of books. Only what creates, imports or invents books uses it.
#pragma once

#include <chrono>
#include <concepts>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

#include "session/data/Currency.h"

struct sqlite3;
struct sqlite3_stmt;

namespace pstolvane1::books {

struct Table;

using Day = std::chrono::sys_days;

// "2004-03-31"; the year has four digits.
[[nodiscard]] std::string IsoText(Day day);

// One file of books, written by one thread. Nothing is durable before Finish.
class Writer {
 public:
  struct Existing {};

  // Begins an empty file, which errors call by that name. Error 501 when that fails.
  Writer(const std::string& path, std::string name);
  // Begins a transaction on books that are there; unless it is finished they stay as they were.
  // Waits ten seconds for another writer. Error 501 when that fails.
  Writer(const std::string& path, Existing);
  ~Writer();
  Writer(const Writer&) = delete;
  Writer& operator=(const Writer&) = delete;

  // Error 501 with the engine's words.
  void Execute(const std::string& statement);
  void CreateTables();
  void CreateIndexes(const Table& table);
  // Commits what was added and closes the file.
  void Finish();

  [[nodiscard]] sqlite3* Raw() const { return database_; }

 private:
  void Open(int flags);
  void Begin(std::initializer_list<const char*> statements);

  std::string path_;
  std::string name_;
  sqlite3* database_ = nullptr;
};

// A prepared statement whose parameters are given in order, once a row.
class Statement {
 public:
  Statement(Writer& writer, const std::string& text);
  // An INSERT into these columns of the table, "Item_id, ItemName".
  Statement(Writer& writer, std::string_view table, std::string_view columns);
  ~Statement();
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

  // Money, flags and days are written as the books keep them; an empty optional is Null.
  template <typename... Values>
  void Run(const Values&... values) {
    int place = 0;
    (Bind(++place, values), ...);
    Step(place);
  }

  void Bind(int place, std::nullopt_t);
  void Bind(int place, double value);
  void Bind(int place, Currency value);
  void Bind(int place, Day value);
  // The text must live until Step.
  void Bind(int place, std::string_view value);
  void Bind(int place, const std::string& value) { Bind(place, std::string_view(value)); }
  void Bind(int place, const char* value) { Bind(place, std::string_view(value)); }
  template <std::integral Number>
  void Bind(int place, Number value) {
    BindWhole(place, static_cast<std::int64_t>(value));
  }
  template <typename Value>
  void Bind(int place, const std::optional<Value>& value) {
    if (value) {
      Bind(place, *value);
    } else {
      Bind(place, std::nullopt);
    }
  }
  // As the text, without needing it afterwards.
  void BindCopy(int place, std::string_view value);
  // Runs with what is bound; count is how many parameters were given, and must be all.
  void Step(int count);
  // False when a key or another constraint refuses the row.
  [[nodiscard]] bool TryStep(int count);

 private:
  void BindWhole(int place, std::int64_t value);
  void Prepare(const std::string& text);
  void Check(int result) const;

  Writer& writer_;
  sqlite3_stmt* statement_ = nullptr;
};

}  // namespace pstolvane1::books
