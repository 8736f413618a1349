// One statement that runs on a held state of the books.
#pragma once

#include <chrono>
#include <memory>
#include <vector>

#include "session/data/Provider.h"
#include "session/engine/Watch.h"
#include "session/engine/sqlite/Cells.h"
#include "session/engine/sqlite/Native.h"
#include "session/engine/sqlite/Snapshot.h"
#include "session/sql/Translate.h"

namespace pstolvane1::sqlite {

// The time limit counts the time in which the engine works for this cursor, not that in which it
// works for another or waits to be asked for more rows.
class SqliteCursor final : public Cursor {
 public:
  SqliteCursor(std::shared_ptr<HeldState> state, const sql::Translation& translation,
               std::chrono::milliseconds time_limit);
  ~SqliteCursor() override;

  [[nodiscard]] const std::vector<ColumnInfo>& Columns() const override { return columns_; }
  std::size_t Read(Chunk& chunk) override;
  void Cancel() noexcept override;

 private:
  void Prepare(const sql::Translation& translation);
  void CheckTouched();

  const std::shared_ptr<HeldState> state_;
  const std::vector<ColumnInfo> columns_;
  CancelSignal cancel_;
  Watch watch_;
  NativeStatement statement_;
  std::vector<TableColumn> touched_;
  std::unique_ptr<RowWriter> writer_;
  bool checked_ = false;  // what it touches
  bool at_end_ = false;
};

}  // namespace pstolvane1::sqlite
