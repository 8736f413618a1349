// Writing to books on a PostgreSQL server. Only what creates, imports or copies books uses it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "session/engine/postgres/Native.h"

namespace pstolvane1::books {

struct Table;

// One transaction on the server, written by one thread. Nothing is kept before Finish. Errors are
// 501 with the server's words; a server that reports cannot be read from is not written to, and
// nobody's lock is waited for longer than half a minute.
class ServerWriter {
 public:
  // Begins a transaction in the first schema of the search_path.
  explicit ServerWriter(const std::string& connection_string);
  ServerWriter(const ServerWriter&) = delete;
  ServerWriter& operator=(const ServerWriter&) = delete;

  void Execute(const std::string& statement);
  // How many of the reference schema's tables the schema has.
  [[nodiscard]] int CountTables();
  void CreateTables();
  void CreateIndexes(const Table& table);
  // Commits, and lets the server count what is there, by which it plans.
  void Finish();

  // Rows of one table, in the text form of the server's COPY.
  void BeginRows(std::string_view table, const std::string& columns);
  void AddRows(std::string_view lines);
  void EndRows();

  // How errors call the books.
  [[nodiscard]] const std::string& Name() const { return name_; }

 private:
  void Connect(const std::string& connection_string);
  void CheckWritable();
  [[nodiscard]] std::string TableIn(std::string_view table) const;  // with the schema, quoted
  // With the words of a statement's result, or those of a lost connection.
  [[noreturn]] void Fail(const pg_result* result = nullptr);
  [[noreturn]] void FailWith(const std::string& words);
  [[nodiscard]] std::string Ask(const std::string& statement);

  std::string name_;
  std::string schema_;
  bool committed_ = false;
  postgres::NativeConnection connection_;
};

}  // namespace pstolvane1::books
