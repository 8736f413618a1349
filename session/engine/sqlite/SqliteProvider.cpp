#include "session/engine/sqlite/SqliteProvider.h"

#include <filesystem>
#include <fmt/format.h>
#include <system_error>
#include <utility>

#include "session/data/OutOfMemory.h"
#include "session/engine/sqlite/Cells.h"
#include "session/engine/sqlite/Schema.h"

namespace pstolvane1::sqlite {
namespace {

constexpr std::size_t kIdleConnections = 4;

// What the system says of the file before the engine is asked; empty when the engine can try.
std::string ProblemOf(const std::filesystem::path& path) {
  std::error_code error;
  const std::filesystem::file_status status = std::filesystem::status(path, error);
  switch (status.type()) {
    case std::filesystem::file_type::regular:
      return "";
    case std::filesystem::file_type::not_found:
      return "there is no such file";
    case std::filesystem::file_type::directory:
      return "it is a folder";
    case std::filesystem::file_type::none:
    case std::filesystem::file_type::unknown:
      return "its name cannot be looked up (" + error.message() + ")";
    default:
      return "it is no regular file";
  }
}

std::string Absolute(const std::string& path) {
  std::error_code error;
  const std::filesystem::path absolute = std::filesystem::absolute(path, error);
  return error ? path : absolute.string();
}

std::unique_ptr<Database> Open(const std::string& path, Watch& watch) {
  const auto cannot = [&](const std::string& why) {
    return Error(ErrorNumber::kConnection,
                 fmt::format("The books \"{}\" cannot be opened: {}.", path, why));
  };
  if (const std::string problem = ProblemOf(path); !problem.empty()) throw cannot(problem);
  try {
    return std::make_unique<Database>(path, watch);
  } catch (const Error& error) {
    if (error.Number() == ErrorNumber::kOutOfMemory) throw error.While("opening the books");
    throw cannot(error.Description());
  }
}

}  // namespace

// Shared with the states that are held, because they bring their connections back when they end,
// whether or not the provider is still there.
class SqliteProvider::Pool {
 public:
  // A connection that nobody uses and whose file is still the one that its name stands for.
  [[nodiscard]] std::unique_ptr<Database> Take() {
    while (true) {
      std::unique_ptr<Database> database;
      {
        const std::lock_guard guard(mutex_);
        if (idle_.empty()) return nullptr;
        database = std::move(idle_.back());
        idle_.pop_back();
      }
      if (database->IsInPlace()) return database;
      Forget();
    }
  }

  void Give(std::unique_ptr<Database> database) {
    const std::lock_guard guard(mutex_);
    if (idle_.size() < kIdleConnections) idle_.push_back(std::move(database));
  }

  [[nodiscard]] std::shared_ptr<const sql::Catalog> Catalog(std::int64_t schema_version) const {
    const std::lock_guard guard(mutex_);
    return schema_version == schema_version_ ? catalog_ : nullptr;
  }
  [[nodiscard]] std::shared_ptr<const sql::Catalog> LastCatalog() const {
    const std::lock_guard guard(mutex_);
    return catalog_;
  }
  void Keep(std::shared_ptr<const sql::Catalog> catalog, std::int64_t schema_version) {
    const std::lock_guard guard(mutex_);
    catalog_ = std::move(catalog);
    schema_version_ = schema_version;
  }

 private:
  // The file was replaced: what the others know is of the old one. The last catalog still serves
  // Describe until a state of the new file is taken.
  void Forget() {
    const std::lock_guard guard(mutex_);
    schema_version_.reset();
  }

  mutable std::mutex mutex_;
  std::vector<std::unique_ptr<Database>> idle_;
  std::shared_ptr<const sql::Catalog> catalog_;
  std::optional<std::int64_t> schema_version_;
};

SqliteProvider::SqliteProvider(const std::string& path, std::chrono::milliseconds time_limit,
                               Translator translate)
    : path_(Absolute(path)),
      translations_(std::make_shared<Translations>(std::move(translate))),
      cancel_(std::make_shared<CancelSignal>()),
      pool_(std::make_shared<Pool>()) {
  Watch watch(time_limit, {cancel_.get()});
  std::unique_ptr<Database> database = Open(path_, watch);
  try {
    const std::int64_t version = database->BeginState(watch);
    pool_->Keep(
        std::make_shared<sql::Catalog>(ReadCatalog(*database, translations_->Translate(), watch)),
        version);
  } catch (const Error& error) {
    if (error.Number() == ErrorNumber::kOutOfMemory) throw;
    throw Error(ErrorNumber::kConnection,
                fmt::format("The books \"{}\" cannot be opened: {}.", path_, error.Description()));
  }
  if (database->EndState()) pool_->Give(std::move(database));
}

std::shared_ptr<Snapshot> SqliteProvider::TakeSnapshot(std::chrono::milliseconds time_limit) {
  Watch watch(time_limit, {cancel_.get()});
  try {
    std::unique_ptr<Database> database = pool_->Take();
    if (!database) database = Open(path_, watch);
    std::unique_ptr<Database> second = Looking();
    const std::int64_t version = database->BeginState(watch);
    if (second && !second->IsOnTheFileOf(*database)) second.reset();
    std::shared_ptr<const sql::Catalog> catalog = pool_->Catalog(version);
    if (!catalog) {
      catalog =
          std::make_shared<sql::Catalog>(ReadCatalog(*database, translations_->Translate(), watch));
      pool_->Keep(catalog, version);
    }
    const auto held = [&](std::unique_ptr<Database> connection) {
      return std::make_shared<HeldState>(
          std::move(connection), catalog, cancel_,
          [pool = pool_](std::unique_ptr<Database> back) { pool->Give(std::move(back)); });
    };
    return std::make_shared<SqliteSnapshot>(
        held(std::move(database)), second ? held(std::move(second)) : nullptr, translations_);
  } catch (const Error& error) {
    if (error.Number() != ErrorNumber::kConnection) throw;
    throw Error(ErrorNumber::kQueryRefused, error.Description());
  }
}

std::unique_ptr<Database> SqliteProvider::Looking() {
  try {
    std::unique_ptr<Database> second = pool_->Take();
    if (!second) {
      constexpr std::chrono::milliseconds kNotLong{10};
      Watch watch(kNotLong, {cancel_.get()});
      second = Open(path_, watch);
    }
    if (second->Look()) return second;
    pool_->Give(std::move(second));
  } catch (...) {
    // A report can do without it.
  }
  return nullptr;
}

std::shared_ptr<const sql::Translation> SqliteProvider::TranslateNow(std::string_view select) {
  std::shared_ptr<const sql::Catalog> catalog = pool_->LastCatalog();
  // A schema that changed meanwhile is read anew if no writer stands in the way.
  if (std::unique_ptr<Database> database = pool_->Take()) {
    const std::optional<std::int64_t> version = database->SchemaVersionNow();
    const bool stale = version && pool_->Catalog(*version) == nullptr;
    pool_->Give(std::move(database));
    if (stale) {
      try {
        constexpr std::chrono::milliseconds kHardlyAnything{1};
        static_cast<void>(TakeSnapshot(kHardlyAnything));
        catalog = pool_->LastCatalog();
      } catch (const Error&) {
        // The tables as they were when they were last read.
      }
    }
  }
  return translations_->Of(select, catalog);
}

std::vector<ColumnInfo> SqliteProvider::Describe(std::string_view select) {
  return ColumnsOf(TranslateNow(select)->columns);
}

std::string SqliteProvider::Translate(std::string_view select) {
  return TranslateNow(select)->text;
}

void SqliteProvider::Cancel() noexcept { cancel_->Raise(); }

}  // namespace pstolvane1::sqlite
