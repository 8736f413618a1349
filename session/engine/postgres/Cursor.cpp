#include "session/engine/postgres/Cursor.h"

#include <utility>

#include "session/data/OutOfMemory.h"
#include "session/engine/postgres/Errors.h"

namespace pstolvane1::postgres {
namespace {

// Rows between two looks at the watch.
constexpr std::size_t kRowsPerLook = 1024;

}  // namespace

PostgresCursor::PostgresCursor(std::shared_ptr<HeldState> state,
                               const sql::Translation& translation,
                               std::chrono::milliseconds time_limit)
    : state_(std::move(state)),
      columns_(ColumnsOf(translation.columns)),
      copy_(CopyText(translation)),
      watch_(time_limit, {state_->provider_cancel.get(), &state_->cancel, &cancel_}),
      doubtful_(Doubtful(translation.named)),
      reader_(translation.columns) {
  if (state_->spread) return;
  try {
    database_ = state_->pool->Take(watch_);
  } catch (const Error& error) {
    if (error.Number() == ErrorNumber::kOutOfMemory) throw;
    throw Error(ErrorNumber::kQueryRefused, error.Description());
  }
  if (!state_->AreSound(doubtful_)) return;
  doubtful_.clear();
  database_->SendCopy(BeginText() + copy_ + ";COMMIT");
}

std::string PostgresCursor::BeginText() const {
  return "BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY;SET TRANSACTION SNAPSHOT '" +
         state_->exported + "';";
}

void PostgresCursor::CheckColumns() {
  if (doubtful_.empty()) return;
  if (state_->spread) return state_->CheckColumns(doubtful_, nullptr, watch_);
  watch_.Pause();
  static_cast<void>(database_->Run(BeginText(), watch_));
  watch_.Start();
  state_->CheckColumns(doubtful_, database_.get(), watch_);
  database_->SendCopy(copy_ + ";COMMIT");
}

bool PostgresCursor::ReadPiece() {
  if (state_->spread) {
    if (pieces_.empty()) return false;
    held_ = std::move(pieces_.front());
    pieces_.pop_front();
    rest_ = held_;
    return true;
  }
  std::size_t size = 0;
  if (!database_->NextPiece(buffer_, size, watch_)) return false;
  rest_ = {buffer_.get(), size};
  return true;
}

void PostgresCursor::Begin() {
  begun_ = true;
  try {
    CheckColumns();
  } catch (const Error& error) {
    GiveUp();
    throw Meant(error);
  }
  try {
    if (state_->spread) {
      pieces_ = state_->CopyHere(copy_, watch_);
    } else {
      database_->AwaitCopy(watch_);
    }
  } catch (const Error& error) {
    GiveUp();
    // What is the same for every row is reckoned before the first of them comes, and of spread
    // books all rows are read here. Whoever waits too long, or no longer, waits for rows.
    const bool of_a_row = error.Number() != ErrorNumber::kQueryRefused ||
                          error.Description() == kMoreThanOneRow || watch_.Check() != Stop::kNone;
    throw Meant(error).While(of_a_row ? "reading the rows" : "preparing a statement");
  }
}

// A statement that was refused leaves the session as good as before.
void PostgresCursor::GiveUp() {
  ended_ = true;
  if (database_) state_->pool->Give(std::move(database_));
}

// The name of the state is in no other words than those of a server that does not know it any more.
Error PostgresCursor::Meant(const Error& error) const {
  if (error.Description().find(state_->exported) == std::string::npos) return error;
  return Error(ErrorNumber::kQueryRefused,
               "the state of the books that the report reads is gone, because the server has ended "
               "the session that held it");
}

std::size_t PostgresCursor::Read(Chunk& chunk) {
  if (ended_) return 0;
  const std::size_t before = chunk.RowCount();
  watch_.Start();
  if (!begun_) Begin();
  try {
    while (!chunk.Full()) {
      if ((chunk.RowCount() - before) % kRowsPerLook == 0) Database::CheckWatch(watch_);
      if (!reader_.Read(rest_, chunk) && !ReadPiece()) {
        ended_ = true;
        if (database_) state_->pool->Give(std::move(database_));
        break;
      }
    }
  } catch (const Error& error) {
    // What is left of the statement is of no use; its session goes with it.
    ended_ = true;
    database_.reset();
    throw error.While("reading the rows");
  }
  watch_.Pause();
  return chunk.RowCount() - before;
}

void PostgresCursor::Cancel() noexcept { cancel_.Raise(); }

}  // namespace pstolvane1::postgres
