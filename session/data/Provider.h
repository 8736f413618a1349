// What a connection needs of an engine: one state of the books at a time, and rows from it.
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "session/data/Chunk.h"

namespace pstolvane1 {

// One running statement. Read by one thread at a time.
class Cursor {
 public:
  virtual ~Cursor() = default;
  [[nodiscard]] virtual const std::vector<ColumnInfo>& Columns() const = 0;
  // Adds rows to the chunk until it is full or the rows end, and gives how many it added: fewer
  // than there was room for only at the end. The chunk may have further columns behind the cursor's
  // own; they stay Null. Error -2147217900 with the engine's words when the statement fails, is
  // cancelled or goes beyond its time limit.
  virtual std::size_t Read(Chunk& chunk) = 0;
  // Ends this statement alone, from any thread: the Read that runs and every later one is an error.
  virtual void Cancel() noexcept = 0;
};

// One unchanging state of the books. Statements may be run on it from any thread, one or several at
// a time; an engine that can only step one at a time keeps them apart itself. The state is let go
// with the object and its last cursor.
class Snapshot {
 public:
  virtual ~Snapshot() = default;
  // Runs one SELECT of the reports' dialect. Error -2147217900 for what the front end or the engine
  // refuses.
  [[nodiscard]] virtual std::shared_ptr<Cursor> Run(std::string_view select,
                                                    std::chrono::milliseconds time_limit) = 0;
  // Ends whatever runs on it with an error, from any thread.
  virtual void Cancel() noexcept = 0;
};

// One open database. Lives as long as its snapshots need it. Every member may be called from any
// thread, also while another is inside; a time limit of 0 is none.
class Provider {
 public:
  virtual ~Provider() = default;
  // Waits for a lock at most as long as told; then error -2147217900.
  [[nodiscard]] virtual std::shared_ptr<Snapshot> TakeSnapshot(
      std::chrono::milliseconds time_limit) = 0;
  // The columns that one SELECT of the dialect gives, as a cursor over it has them. Neither runs it
  // nor waits for a lock; error -2147217900 for what the front end refuses.
  [[nodiscard]] virtual std::vector<ColumnInfo> Describe(std::string_view select) = 0;
  // The engine's own text for one SELECT of the dialect, under the same conditions.
  [[nodiscard]] virtual std::string Translate(std::string_view select) = 0;
  // Whether statements that run at the same time are done sooner than one after another.
  [[nodiscard]] virtual bool ReadsSideBySide() const noexcept { return false; }
  // Ends whatever runs or waits for a lock on it now with error -2147217900, from any thread. What
  // starts later is not touched.
  virtual void Cancel() noexcept = 0;
};

// Opens the database that a connection string names. Error 501 when that fails, with one sentence
// that names the database and the cause.
using ProviderFactory = std::function<std::shared_ptr<Provider>(
    const std::string& connection_string, std::chrono::milliseconds time_limit)>;

}  // namespace pstolvane1
