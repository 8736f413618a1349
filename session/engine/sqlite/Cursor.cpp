#include "session/engine/sqlite/Cursor.h"

#include <fmt/format.h>
#include <mutex>
#include <sqlite3.h>
#include <utility>

namespace pstolvane1::sqlite {

SqliteCursor::SqliteCursor(std::shared_ptr<HeldState> state, const sql::Translation& translation,
                           std::chrono::milliseconds time_limit)
    : state_(std::move(state)),
      columns_(ColumnsOf(translation.columns)),
      watch_(time_limit, {state_->provider_cancel.get(), &state_->cancel, &cancel_}) {
  const std::lock_guard turn(state_->turn);
  state_->FinalizeDropped();
  Prepare(translation);
}

SqliteCursor::~SqliteCursor() {
  if (statement_) state_->Drop(std::move(statement_));
}

void SqliteCursor::Prepare(const sql::Translation& translation) {
  const Database::Running running(*state_->database, watch_, state_->catalog.get());
  auto [statement, touched] = state_->database->PrepareReport(translation.text);
  const int columns = statement ? sqlite3_column_count(statement.get()) : 0;
  if (columns != static_cast<int>(columns_.size())) {
    throw Error(
        ErrorNumber::kQueryRefused,
        fmt::format("the statement gives {} columns instead of {}", columns, columns_.size()));
  }
  writer_ = std::make_unique<RowWriter>(statement.get(), translation.columns);
  touched_ = std::move(touched);
  statement_ = std::move(statement);  // last: a failure must finalize it while the turn is held
}

void SqliteCursor::CheckTouched() {
  if (checked_) return;
  checked_ = true;
  try {
    state_->database->CheckColumns(touched_, watch_);
  } catch (...) {
    at_end_ = true;
    throw;
  }
}

std::size_t SqliteCursor::Read(Chunk& chunk) {
  if (at_end_) return 0;
  const std::lock_guard turn(state_->turn);
  state_->FinalizeDropped();
  CheckTouched();
  const Database::Running running(*state_->database, watch_, state_->catalog.get());
  const std::size_t before = chunk.RowCount();
  sqlite3_stmt* statement = statement_.get();
  // A short statement may never reach the engine's own look at the watch.
  int code = watch_.Check() == Stop::kNone ? SQLITE_ROW : SQLITE_INTERRUPT;
  try {
    while (code == SQLITE_ROW && !chunk.Full()) {
      code = sqlite3_step(statement);
      if (code != SQLITE_ROW) break;
      writer_->Write(chunk, chunk.RowCount());
      chunk.AddRow();
    }
    if (code != SQLITE_ROW && code != SQLITE_DONE) {
      throw state_->database->Failed(code, "reading the rows");
    }
  } catch (...) {
    at_end_ = true;
    sqlite3_reset(statement);
    throw;
  }
  if (code == SQLITE_DONE) {
    at_end_ = true;
    sqlite3_reset(statement);
  }
  return chunk.RowCount() - before;
}

void SqliteCursor::Cancel() noexcept { cancel_.Raise(); }

}  // namespace pstolvane1::sqlite
