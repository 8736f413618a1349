#include "session/engine/sqlite/Snapshot.h"

#include <utility>

#include "session/engine/sqlite/Cursor.h"

namespace pstolvane1::sqlite {

HeldState::HeldState(std::unique_ptr<Database> connection,
                     std::shared_ptr<const sql::Catalog> tables, std::shared_ptr<CancelSignal> all,
                     GiveBack back)
    : database(std::move(connection)),
      catalog(std::move(tables)),
      provider_cancel(std::move(all)),
      give_back_(std::move(back)) {}

HeldState::~HeldState() {
  FinalizeDropped();
  if (!database->EndState()) return;
  try {
    give_back_(std::move(database));
  } catch (...) {
    // Without room to keep it, the connection is closed.
  }
}

void HeldState::Drop(NativeStatement statement) noexcept {
  try {
    const std::lock_guard guard(dropped_mutex_);
    dropped_.push_back(std::move(statement));
  } catch (...) {
    // Without room to keep it: wait for the turn after all.
    const std::lock_guard guard(turn);
    statement.reset();
    return;
  }
  if (turn.try_lock()) {
    FinalizeDropped();
    turn.unlock();
  }
}

void HeldState::FinalizeDropped() noexcept {
  std::vector<NativeStatement> dropped;
  {
    const std::lock_guard guard(dropped_mutex_);
    dropped.swap(dropped_);
  }
}

SqliteSnapshot::SqliteSnapshot(std::shared_ptr<HeldState> first, std::shared_ptr<HeldState> second,
                               std::shared_ptr<Translations> translations)
    : first_(std::move(first)),
      second_(std::move(second)),
      translations_(std::move(translations)) {}

std::shared_ptr<HeldState> SqliteSnapshot::LeastBusy() {
  const std::lock_guard lock(second_mutex_);
  // Each cursor owns a share of the connection that it reads with, and so does the snapshot.
  if (!second_ || first_.use_count() == 1) return first_;
  if (!second_joined_ && !second_->database->JoinState(*first_->database)) {
    second_.reset();
    return first_;
  }
  second_joined_ = true;
  return second_.use_count() < first_.use_count() ? second_ : first_;
}

std::shared_ptr<Cursor> SqliteSnapshot::Run(std::string_view select,
                                            std::chrono::milliseconds time_limit) {
  const auto translation = translations_->Of(select, first_->catalog);
  return std::make_shared<SqliteCursor>(LeastBusy(), *translation, time_limit);
}

void SqliteSnapshot::Cancel() noexcept {
  const std::lock_guard lock(second_mutex_);
  first_->cancel.Raise();
  if (second_) second_->cancel.Raise();
}

}  // namespace pstolvane1::sqlite
