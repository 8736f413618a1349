// One unchanging state of the books on one connection of its own, and the cursors that read it.
#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <vector>

#include "session/data/Provider.h"
#include "session/engine/FairMutex.h"
#include "session/engine/Translations.h"
#include "session/engine/Watch.h"
#include "session/engine/sqlite/Database.h"
#include "session/engine/sqlite/Schema.h"

namespace pstolvane1::sqlite {

// What a snapshot and its cursors share. Shared because the state must be held until the last of
// them is gone, whichever that is. Its connection steps one statement at a time: whoever touches it
// holds turn.
struct HeldState {
  using GiveBack = std::function<void(std::unique_ptr<Database>)>;

  HeldState(std::unique_ptr<Database> connection, std::shared_ptr<const sql::Catalog> tables,
            std::shared_ptr<CancelSignal> all, GiveBack back);
  // Lets the state of the books go and hands the connection back if it is still of use.
  ~HeldState();
  HeldState(const HeldState&) = delete;
  HeldState& operator=(const HeldState&) = delete;

  // Finalizes the statement now if nobody is at work, else leaves it to whoever is: a rowset that
  // closes must not wait for its neighbour.
  void Drop(NativeStatement statement) noexcept;
  // With turn held.
  void FinalizeDropped() noexcept;

  std::unique_ptr<Database> database;
  const std::shared_ptr<const sql::Catalog> catalog;
  const std::shared_ptr<CancelSignal> provider_cancel;
  CancelSignal cancel;
  FairMutex turn;

 private:
  const GiveBack give_back_;
  std::mutex dropped_mutex_;
  std::vector<NativeStatement> dropped_;
};

// A statement that runs while another is read has a connection of its own where one can be had that
// sees the same state; else they take turns.
class SqliteSnapshot final : public Snapshot {
 public:
  // The first holds the state. The second, which may be null, has looked at the data before that
  // state was begun (Database::Look), and joins it when it is needed.
  SqliteSnapshot(std::shared_ptr<HeldState> first, std::shared_ptr<HeldState> second,
                 std::shared_ptr<Translations> translations);

  [[nodiscard]] std::shared_ptr<Cursor> Run(std::string_view select,
                                            std::chrono::milliseconds time_limit) override;
  void Cancel() noexcept override;

 private:
  // The connection for one more cursor.
  [[nodiscard]] std::shared_ptr<HeldState> LeastBusy();

  const std::shared_ptr<HeldState> first_;
  std::mutex second_mutex_;
  std::shared_ptr<HeldState> second_;
  bool second_joined_ = false;
  const std::shared_ptr<Translations> translations_;
};

}  // namespace pstolvane1::sqlite
