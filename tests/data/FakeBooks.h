// Books of a test: tables written as text, and an engine over them whose moments can be held.
#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <functional>
#include <limits>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "session/data/Connection.h"
#include "session/data/Error.h"
#include "session/data/Provider.h"
#include "session/data/Recordset.h"

namespace pstolvane1 {

// Holds whoever passes until it is opened, or until a cancel.
class Gate {
 public:
  void Open();
  // False when `cancelled` came first; `cancelled` is looked at whenever Ring was called.
  bool Pass(const std::atomic<bool>& cancelled);
  void Ring();
  // Until somebody is held at it.
  void WaitForArrival();

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  bool open_ = false;
  int arrived_ = 0;
};

struct FakeTable {
  std::vector<ColumnInfo> columns;
  std::size_t row_count = 0;
  // The cells of row n in a state of the books.
  std::function<std::vector<Variant>(std::size_t row, int state)> cells;

  static constexpr std::size_t kNever = std::numeric_limits<std::size_t>::max();
  std::size_t fails_at = kNever;   // reading this row is an error
  std::optional<Error> run_error;  // Run refuses it although Describe did not
  std::size_t gate_at = kNever;    // reading this row waits at the gate
  std::shared_ptr<Gate> gate = std::make_shared<Gate>();
  std::chrono::microseconds per_chunk{0};  // how slow reading is
};

// What a test sees of the engine's side. Fill it before the first connection opens. The query text
// of a table is its name; anything else is refused with its place.
struct FakeBooks {
  std::map<std::string, FakeTable> tables;
  bool side_by_side = false;   // what the engine says of itself
  std::atomic<int> state = 1;  // of the books; a snapshot keeps the one it was taken in

  // What opening the database does.
  std::optional<Error> open_error;
  std::shared_ptr<Gate> open_gate;      // holds the factory, which nothing can cancel
  std::shared_ptr<Gate> snapshot_gate;  // holds TakeSnapshot, as a lock on the books does
  std::optional<Error> snapshot_error;

  // What happened.
  std::atomic<int> live = 0;  // providers, snapshots and cursors that exist
  std::atomic<int> live_snapshots = 0;
  std::atomic<int> snapshots_taken = 0;
  std::atomic<int> snapshots_asked = 0;
  std::mutex mutex;
  std::vector<std::string> opened;  // connection strings
  std::vector<std::chrono::milliseconds> time_limits;
  std::map<std::string, int> runs;  // per query
  std::set<std::thread::id> reading_threads;

  // "id:int name:text:20 paid:money" and a line per row, cells parted by blanks. Types: int, big,
  // single, double, money, date, flag, text. "(null)" is Null, "''" the empty text, and "_" in a
  // text is a blank.
  FakeTable& Add(const std::string& name, std::string_view text);
  // n rows of one whole number column "n" from 0 and one text column "t", "row 0" and so on.
  FakeTable& AddNumbers(const std::string& name, std::size_t rows);

  [[nodiscard]] ProviderFactory Factory(const std::shared_ptr<FakeBooks>& self);
};

// A fresh set of books, and an open connection to it.
[[nodiscard]] std::shared_ptr<Connection> Connected(const std::shared_ptr<FakeBooks>& books);

// Waits until nothing of the books' engine exists any more; false after a minute.
[[nodiscard]] bool AllGone(const FakeBooks& books);

// Pumps this thread's messages until the condition holds; false after a minute.
[[nodiscard]] bool PumpUntil(const std::function<bool()>& condition);

// The visible rows, one a line: "id=1 name=Bolt", a chapter's rows behind it and indented with the
// chapter's name. Numbers as Variant's text, Null as "(null)".
[[nodiscard]] std::string Dump(Recordset& rowset, const std::string& before = {});
[[nodiscard]] std::string ColumnsOf(Recordset& rowset);  // "id:3 name:200"

// What the call throws, as "number: description"; "nothing" when it throws nothing.
[[nodiscard]] std::string Thrown(const std::function<void()>& call);

}  // namespace pstolvane1
