// One unchanging state of the books, which a session of its own holds and exports to those that
// read it.
#pragma once

#include <deque>
#include <memory>
#include <span>
#include <string>

#include "session/data/Provider.h"
#include "session/engine/FairMutex.h"
#include "session/engine/Translations.h"
#include "session/engine/Watch.h"
#include "session/engine/postgres/Pool.h"
#include "session/engine/postgres/Schema.h"

namespace pstolvane1::postgres {

// What a snapshot and its cursors share. Shared because the state must be held until the last of
// them is gone, whichever that is.
struct HeldState {
  // Begins the state, on the servers behind foreign tables as well.
  HeldState(std::shared_ptr<Pool> sessions, std::shared_ptr<CancelSignal> all, Watch& watch);
  ~HeldState();
  HeldState(const HeldState&) = delete;
  HeldState& operator=(const HeldState&) = delete;

  // Error 13 for a value in one of the columns that is none of its type to the dialect. Looks
  // through those of which that is not known in this state of the books, in the session given,
  // which reads the state; in the holder's own where the books are spread. Queries that ask at the
  // same time wait for each other.
  void CheckColumns(std::span<const NamedColumn> columns, Database* session, Watch& watch);
  // Whether CheckColumns has nothing left to check.
  [[nodiscard]] bool AreSound(std::span<const NamedColumn> columns) const;

  // All that a COPY gives, read in the holder's own session, one statement at a time.
  [[nodiscard]] std::deque<std::string> CopyHere(const std::string& copy, Watch& watch);

  const std::shared_ptr<Pool> pool;
  const std::shared_ptr<CancelSignal> provider_cancel;
  CancelSignal cancel;
  std::shared_ptr<const sql::Catalog> catalog;
  std::string exported;  // the server's name of the state
  // Tables lie on other servers. Those do not know the exported state: they keep one for each
  // session, so that what is to see one state must be read in one session.
  bool spread = false;

 private:
  // Does the work in the holder's session, as a part of its transaction that can fail alone.
  template <typename Work>
  auto Here(Watch& watch, const Work& work);

  FairMutex one_at_a_time_;
  FairMutex checking_;
  std::unique_ptr<Database> holder_;
  std::string state_;  // the same for states that hold the same rows
  SoundColumns own_;   // of spread books: the server's word for a state says nothing of others
};

class PostgresSnapshot final : public Snapshot {
 public:
  PostgresSnapshot(std::shared_ptr<HeldState> state, std::shared_ptr<Translations> translations);

  // Every cursor has a session of its own, so that they read side by side, unless the books are
  // spread.
  [[nodiscard]] std::shared_ptr<Cursor> Run(std::string_view select,
                                            std::chrono::milliseconds time_limit) override;
  void Cancel() noexcept override;

 private:
  const std::shared_ptr<HeldState> state_;
  const std::shared_ptr<Translations> translations_;
};

}  // namespace pstolvane1::postgres
