#include "session/engine/postgres/Snapshot.h"

#include <cstdlib>
#include <libpq-fe.h>
#include <utility>

#include "session/engine/postgres/Cursor.h"

namespace pstolvane1::postgres {

namespace {

// One SELECT that reaches every server on which a table of the books, or a part of one, lies; Null
// where all tables are here.
constexpr const char* kReachAll =
    "(SELECT string_agg(format('(SELECT 1 FROM %s LIMIT 1)', one), ' UNION ALL ') FROM"
    " (SELECT min(ftrelid)::regclass AS one FROM pg_foreign_table JOIN pg_class c ON c.oid ="
    " coalesce(pg_partition_root(ftrelid), ftrelid) JOIN pg_namespace n ON n.oid = c.relnamespace"
    " WHERE n.nspname = ANY (current_setting('pstolvane1.schemas')::name[])"
    " GROUP BY ftserver) AS servers)";

// Which transactions a state sees, and of which life of the server.
constexpr const char* kState =
    "pg_current_snapshot()::text || '/' || pg_postmaster_start_time()::text";

// Of what is read ahead, about; a row is never parted.
constexpr std::size_t kPieceBytes = 65536;

}  // namespace

HeldState::HeldState(std::shared_ptr<Pool> sessions, std::shared_ptr<CancelSignal> all,
                     Watch& watch)
    : pool(std::move(sessions)), provider_cancel(std::move(all)) {
  holder_ = pool->Take(watch);
  const NativeResult state =
      holder_->Run(std::string("BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY;"
                               "SELECT pg_export_snapshot(), ") +
                       kSchemaVersion + ", " + kReachAll + ", " + kState,
                   watch);
  exported = PQgetvalue(state.get(), 0, 0);
  const std::string version = PQgetvalue(state.get(), 0, 1);
  spread = PQgetisnull(state.get(), 0, 2) == 0;
  state_ = PQgetvalue(state.get(), 0, 3);
  if (spread) static_cast<void>(holder_->Run(PQgetvalue(state.get(), 0, 2), watch));
  catalog = pool->Catalog(version);
  if (catalog) return;
  catalog = std::make_shared<sql::Catalog>(ReadCatalog(*holder_, watch));
  pool->Keep(catalog, version);
}

HeldState::~HeldState() {
  if (holder_) pool->Give(std::move(holder_));
}

template <typename Work>
auto HeldState::Here(Watch& watch, const Work& work) {
  watch.Pause();
  const std::lock_guard lock(one_at_a_time_);
  watch.Start();
  if (!holder_ || holder_->IsLost()) {
    throw Error(ErrorNumber::kQueryRefused,
                "the state of the books is gone, because another statement on it was broken off");
  }
  try {
    return work();
  } catch (...) {
    // What the server refused leaves the state as it was; what was broken off ends it.
    if (holder_->Failed()) {
      static_cast<void>(holder_->Run("ROLLBACK TO before", watch));
    } else {
      holder_.reset();
    }
    throw;
  }
}

bool HeldState::AreSound(std::span<const NamedColumn> columns) const {
  return columns.empty() || (spread ? own_ : pool->Sound()).Unknown(state_, columns).empty();
}

void HeldState::CheckColumns(std::span<const NamedColumn> columns, Database* session,
                             Watch& watch) {
  watch.Pause();
  const std::lock_guard lock(checking_);
  watch.Start();
  SoundColumns& sound = spread ? own_ : pool->Sound();
  const std::vector<NamedColumn> unknown = sound.Unknown(state_, columns);
  if (unknown.empty()) return;
  const std::string text = WrongValuesText(unknown);
  const NativeResult wrong = [&] {
    try {
      if (!spread) {
        watch.Pause();
        return session->Run(text, watch);
      }
      return Here(watch, [&] {
        return holder_->Run("SAVEPOINT before;" + text + ";RELEASE before", watch);
      });
    } catch (const Error& error) {
      throw error.While("reading the rows");
    }
  }();
  watch.Start();
  if (PQntuples(wrong.get()) > 0) {
    const auto which = static_cast<std::size_t>(std::atoi(PQgetvalue(wrong.get(), 0, 0)));
    throw WrongValue(WhereOf(unknown.at(which)),
                     "\"" + std::string(PQgetvalue(wrong.get(), 0, 1)) + "\"");
  }
  sound.Remember(state_, unknown);
}

std::deque<std::string> HeldState::CopyHere(const std::string& copy, Watch& watch) {
  return Here(watch, [&] {
    std::deque<std::string> pieces;
    holder_->SendCopy("SAVEPOINT before;" + copy + ";RELEASE before");
    holder_->AwaitCopy(watch);
    NativeBuffer buffer;
    std::size_t size = 0;
    while (holder_->NextPiece(buffer, size, watch)) {
      if (pieces.empty() || pieces.back().size() > kPieceBytes) pieces.emplace_back();
      pieces.back().append(buffer.get(), size);
    }
    return pieces;
  });
}

PostgresSnapshot::PostgresSnapshot(std::shared_ptr<HeldState> state,
                                   std::shared_ptr<Translations> translations)
    : state_(std::move(state)), translations_(std::move(translations)) {}

std::shared_ptr<Cursor> PostgresSnapshot::Run(std::string_view select,
                                              std::chrono::milliseconds time_limit) {
  return std::make_shared<PostgresCursor>(state_, *translations_->Of(select, state_->catalog),
                                          time_limit);
}

void PostgresSnapshot::Cancel() noexcept { state_->cancel.Raise(); }

}  // namespace pstolvane1::postgres
