// One native connection to the books: read-only, guarded, one statement at a time.
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "session/data/Error.h"
#include "session/engine/Watch.h"
#include "session/engine/sqlite/ColumnCheck.h"
#include "session/engine/sqlite/Guard.h"
#include "session/engine/sqlite/Native.h"
#include "session/sql/Catalog.h"

namespace pstolvane1::sqlite {

// Used by one thread at a time; who owns it keeps threads apart. Errors are -2147217900 with the
// engine's words unless told otherwise.
class Database {
 public:
  // Opens an existing file and reads its schema, so that a file of another kind is refused here.
  // Waits for locks within the watch's limit. Error 501 whose text continues "the books FILE cannot
  // be opened: ...".
  Database(const std::string& file, Watch& watch);
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;

  // True while the file is still what its name stands for: false after it was replaced or removed.
  [[nodiscard]] bool IsInPlace() const;
  // Begins one state of the books and holds it; gives the version of its schema.
  std::int64_t BeginState(Watch& watch);
  // Lets the state go; all statements are finalized before. False when the connection is of no use
  // any more.
  [[nodiscard]] bool EndState() noexcept;
  // The version of the schema as it is now, without a state; nothing when a lock stands in the way.
  [[nodiscard]] std::optional<std::int64_t> SchemaVersionNow();

  // How two connections come to see one state, although each can only begin one of its own: the
  // second looks at the data, the first begins its state, the second joins. The second then finds
  // whether anything was written since it looked. What was not changed by then was not changed
  // either when the first began.

  // Looks at the data as they are now, without a state. False when a lock stands in the way.
  [[nodiscard]] bool Look();
  // Begins, without waiting, the state that the other connection has begun since the Look, and
  // holds it. False, and no state, when something was written since or a lock stands in the way.
  // The other may be at work. Both have opened the same file.
  [[nodiscard]] bool JoinState(const Database& other);
  // True only if both connections have opened the same file.
  [[nodiscard]] bool IsOnTheFileOf(const Database& other) const;

  // While it lives, statements may be prepared and stepped, and the watch may end them. A catalog
  // holds the statements to selecting from its tables; null is for the library's own statements.
  // Work comes in batches, because it costs two readings of the clock.
  class Running {
   public:
    Running(Database& database, Watch& watch, const sql::Catalog* catalog = nullptr);
    ~Running();
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

   private:
    Database& database_;
    Guard::Permission permission_;
  };

  // The columns that a statement of a catalog touches: prepares it.
  struct Prepared {
    NativeStatement statement;
    std::vector<TableColumn> touched;
  };
  [[nodiscard]] Prepared PrepareReport(const std::string& text);
  // Error 13 for a value in one of the columns that is not of its type; see ColumnCheck. Looks
  // through those that were not looked through in this state of the books.
  void CheckColumns(std::span<const TableColumn> columns, Watch& watch);

  [[nodiscard]] NativeStatement Prepare(const std::string& text);
  // True for a row, false at the end.
  [[nodiscard]] bool Step(sqlite3_stmt* statement, std::string_view doing);

  // What a step's code means, told with the function's own error if one of them failed, with the
  // watch if it ended the step, else with the engine's words. Call it right behind the step.
  [[nodiscard]] Error Failed(int code, std::string_view doing) const;

  // Where a function of the library leaves the error with which it fails.
  [[nodiscard]] std::optional<Error>& FunctionError() { return function_error_; }

 private:
  void Configure();
  [[nodiscard]] Error CannotOpen(int code) const;
  void Execute(const char* text);
  // The number that a statement gives now; nothing when it fails. Does not wait for a lock.
  static std::optional<std::int64_t> NumberNow(sqlite3_stmt* statement);
  static int OnProgress(void* database) noexcept;
  static int OnBusy(void* database, int attempts) noexcept;

  std::string file_;
  Guard guard_;
  Watch* watch_ = nullptr;
  std::optional<Error> function_error_;
  NativeDatabase native_;
  NativeStatement begin_;
  NativeStatement end_;
  NativeStatement schema_version_;
  NativeStatement data_version_;
  std::optional<std::int64_t> looked_at_;  // the data version at the last Look
  ColumnCheck column_check_;
};

}  // namespace pstolvane1::sqlite
