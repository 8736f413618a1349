// One statement that runs on a held state of the books, in a session of its own.
#pragma once

#include <chrono>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "session/data/Provider.h"
#include "session/engine/Watch.h"
#include "session/engine/postgres/Cells.h"
#include "session/engine/postgres/Snapshot.h"
#include "session/sql/Translate.h"

namespace pstolvane1::postgres {

// The time limit counts the time in which somebody waits for the server, not that in which nobody
// asks for more rows. What the server refuses is told by the first Read. A cursor that goes before
// its end closes its session, which ends the statement.
class PostgresCursor final : public Cursor {
 public:
  PostgresCursor(std::shared_ptr<HeldState> state, const sql::Translation& translation,
                 std::chrono::milliseconds time_limit);
  ~PostgresCursor() override = default;

  [[nodiscard]] const std::vector<ColumnInfo>& Columns() const override { return columns_; }
  std::size_t Read(Chunk& chunk) override;
  void Cancel() noexcept override;

 private:
  // Waits for the first rows.
  void Begin();
  // Looks through the statement's columns where that was not done in this state of the books, and
  // sends the statement that waited for it.
  void CheckColumns();
  void GiveUp();
  // The statements that make the session read the state.
  [[nodiscard]] std::string BeginText() const;
  // What the error of a statement that was not begun means to the reader.
  [[nodiscard]] Error Meant(const Error& error) const;
  // False at the end of all rows.
  [[nodiscard]] bool ReadPiece();

  const std::shared_ptr<HeldState> state_;
  const std::vector<ColumnInfo> columns_;
  const std::string copy_;
  CancelSignal cancel_;
  Watch watch_;
  std::vector<NamedColumn> doubtful_;   // to be looked through before the first row
  std::unique_ptr<Database> database_;  // until the end; none where the books are spread
  std::deque<std::string> pieces_;      // what is still to be read of spread books
  bool begun_ = false;                  // the server has begun to copy
  bool ended_ = false;
  RowReader reader_;
  NativeBuffer buffer_;
  std::string held_;
  std::string_view rest_;  // of the buffer, or of what is held
};

}  // namespace pstolvane1::postgres
