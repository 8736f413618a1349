#include "session/engine/postgres/Pool.h"

#include <utility>

#include "session/data/OutOfMemory.h"
#include "session/engine/postgres/Errors.h"

namespace pstolvane1::postgres {
namespace {

// Those of one report with five queries.
constexpr std::size_t kIdleSessions = 6;

}  // namespace

std::unique_ptr<Database> Pool::Take(Watch& watch) {
  while (true) {
    std::unique_ptr<Database> database;
    {
      const std::lock_guard guard(mutex_);
      if (idle_.empty()) break;
      database = std::move(idle_.back());
      idle_.pop_back();
    }
    if (database->TakeUp(watch)) return database;
    // Those that rest beside it are hardly better, and each would be waited for.
    std::vector<std::unique_ptr<Database>> others;
    const std::lock_guard guard(mutex_);
    others.swap(idle_);
  }
  try {
    return std::make_unique<Database>(settings_, watch);
  } catch (const Error& error) {
    if (error.Number() == ErrorNumber::kOutOfMemory) throw;
    throw Error(ErrorNumber::kConnection, "The books " + settings_.Name() + " cannot be opened: " +
                                              Sentence(error.Description()));
  }
}

void Pool::Give(std::unique_ptr<Database> database) noexcept {
  if (!database->LetGo()) return;
  try {
    const std::lock_guard guard(mutex_);
    if (idle_.size() < kIdleSessions) idle_.push_back(std::move(database));
  } catch (...) {
    // Without room to keep it, the session is closed.
  }
}

std::shared_ptr<const sql::Catalog> Pool::Catalog(const std::string& version) const {
  const std::lock_guard guard(mutex_);
  return version == version_ ? catalog_ : nullptr;
}

std::shared_ptr<const sql::Catalog> Pool::LastCatalog() const {
  const std::lock_guard guard(mutex_);
  return catalog_;
}

void Pool::Keep(std::shared_ptr<const sql::Catalog> catalog, const std::string& version) {
  const std::lock_guard guard(mutex_);
  catalog_ = std::move(catalog);
  version_ = version;
}

}  // namespace pstolvane1::postgres
