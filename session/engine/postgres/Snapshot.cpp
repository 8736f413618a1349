#include "session/engine/postgres/Snapshot.h"

#include <libpq-fe.h>
#include <utility>

#include "session/engine/postgres/Cursor.h"

namespace pstolvane1::postgres {

HeldState::HeldState(std::shared_ptr<Pool> sessions, std::shared_ptr<CancelSignal> all,
                     Watch& watch)
    : pool(std::move(sessions)), provider_cancel(std::move(all)) {
  holder_ = pool->Take(watch);
  const NativeResult state =
      holder_->Run(std::string("BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY;"
                               "SELECT pg_export_snapshot(), ") +
                       kSchemaVersion,
                   watch);
  exported = PQgetvalue(state.get(), 0, 0);
  const std::string version = PQgetvalue(state.get(), 0, 1);
  catalog = pool->Catalog(version);
  if (catalog) return;
  catalog = std::make_shared<sql::Catalog>(ReadCatalog(*holder_, watch));
  pool->Keep(catalog, version);
}

HeldState::~HeldState() {
  if (holder_) pool->Give(std::move(holder_));
}

PostgresSnapshot::PostgresSnapshot(std::shared_ptr<HeldState> state, Translator translate)
    : state_(std::move(state)), translate_(std::move(translate)) {}

std::shared_ptr<Cursor> PostgresSnapshot::Run(std::string_view select,
                                              std::chrono::milliseconds time_limit) {
  return std::make_shared<PostgresCursor>(state_, translate_(select, *state_->catalog), time_limit);
}

void PostgresSnapshot::Cancel() noexcept { state_->cancel.Raise(); }

}  // namespace pstolvane1::postgres
