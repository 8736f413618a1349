#include "session/engine/sqlite/Database.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>
#include <sqlite3.h>
#include <system_error>
#include <thread>

#include "session/data/OutOfMemory.h"
#include "session/engine/sqlite/Errors.h"
#include "session/engine/sqlite/Functions.h"

namespace pstolvane1::sqlite {
namespace {

// Operations of the engine between two looks at the watch: some ten microseconds.
constexpr int kOperationsPerLook = 1000;
constexpr std::chrono::milliseconds kLongestNap{10};

std::string LimitText(const Watch& watch) {
  return fmt::format("{:g} s", static_cast<double>(watch.Limit().count()) / 1000.0);
}

// The file behind the connection. Another descriptor on it must never be opened and closed by hand:
// the system would then drop the locks that this process holds on the books.
sqlite3_file* FileOf(sqlite3* native) {
  sqlite3_file* file = nullptr;
  sqlite3_file_control(native, "main", SQLITE_FCNTL_FILE_POINTER, &file);
  return file != nullptr && file->pMethods != nullptr ? file : nullptr;
}

// The first bytes of a database file, as far as it has them.
struct Header {
  static constexpr std::size_t kPageSize = 16;  // two bytes, big end first; 1 stands for 65536
  static constexpr std::size_t kReadVersion = 19;
  static constexpr unsigned kNewestReadVersion = 2;
  std::array<unsigned char, 100> bytes{};
  sqlite3_int64 file_size = 0;

  explicit Header(sqlite3* native) {
    sqlite3_file* file = FileOf(native);
    if (file == nullptr) return;
    file->pMethods->xFileSize(file, &file_size);
    // A short read leaves zeros.
    file->pMethods->xRead(file, bytes.data(), static_cast<int>(bytes.size()), 0);
  }
  [[nodiscard]] bool HasMagic() const {
    constexpr std::string_view kMagic = "SQLite format 3";
    return std::equal(kMagic.begin(), kMagic.end(), bytes.begin(),
                      [](char a, unsigned char b) { return static_cast<unsigned char>(a) == b; });
  }
  [[nodiscard]] bool IsTooNew() const {
    return HasMagic() && bytes[kReadVersion] > kNewestReadVersion;
  }
  [[nodiscard]] bool IsWriteAhead() const { return HasMagic() && bytes[kReadVersion] == 2; }
  [[nodiscard]] sqlite3_int64 PageSize() const {
    const int stored = bytes[kPageSize] * 256 + bytes[kPageSize + 1];
    return stored == 1 ? 65536 : stored;
  }
  // The engine would read zeros for the bytes that a last page lacks.
  [[nodiscard]] bool EndsWithinAPage() const {
    return PageSize() > 0 && file_size % PageSize() != 0;
  }
};

}  // namespace

Database::Database(const std::string& file, Watch& watch) : file_(file) {
  sqlite3* native = nullptr;
  const int opened =
      sqlite3_open_v2(file.c_str(), &native, SQLITE_OPEN_READONLY | SQLITE_OPEN_NOMUTEX, nullptr);
  native_.reset(native);
  if (opened != SQLITE_OK) throw CannotOpen(opened);
  const Running running(*this, watch);
  Configure();
  begin_ = Prepare("BEGIN");
  end_ = Prepare("COMMIT");
  sqlite3_stmt* statement = nullptr;
  int code =
      sqlite3_prepare_v2(native, "SELECT count(*) FROM sqlite_schema", -1, &statement, nullptr);
  const NativeStatement schema(statement);
  if (code == SQLITE_OK) code = sqlite3_step(statement);
  if (code != SQLITE_ROW) throw CannotOpen(code);
  // The statement is not reset yet: with a rollback journal no writer can change the size now.
  const Header header(native);
  if (header.file_size == 0) throw Error(ErrorNumber::kConnection, "the file is empty");
  if (header.EndsWithinAPage() && !header.IsWriteAhead()) {
    throw Error(ErrorNumber::kConnection, std::string(Meaning(Failure::kDamaged)) +
                                              " (the file ends in the middle of a page)");
  }
  if (sqlite3_column_int64(statement, 0) == 0) {
    throw Error(ErrorNumber::kConnection, "it holds no tables, so it is no books");
  }
  schema_version_ = Prepare("PRAGMA schema_version");
  data_version_ = Prepare("PRAGMA data_version");
}

void Database::Configure() {
  sqlite3* native = native_.get();
  sqlite3_extended_result_codes(native, 1);
  sqlite3_busy_handler(native, &Database::OnBusy, this);
  sqlite3_progress_handler(native, kOperationsPerLook, &Database::OnProgress, this);
  constexpr std::array<std::pair<int, int>, 7> kSettings{{
      {SQLITE_DBCONFIG_DEFENSIVE, 1},
      {SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0},
      {SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 0},
      {SQLITE_DBCONFIG_ENABLE_TRIGGER, 0},
      {SQLITE_DBCONFIG_DQS_DML, 0},
      {SQLITE_DBCONFIG_DQS_DDL, 1},  // the books' own views may have been made with it
      {SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1},
  }};
  for (const auto& [setting, value] : kSettings) {
    sqlite3_db_config(native, setting, value, nullptr);
  }
  // The Bloom filters of its joins take texts of different lengths for different texts, which under
  // the collation of the dialect they need not be.
  constexpr unsigned kBloomFilters = 0x00080000;
  sqlite3_test_control(SQLITE_TESTCTRL_OPTIMIZATIONS, native, kBloomFilters);
  sqlite3_limit(native, SQLITE_LIMIT_ATTACHED, 0);
  Execute("PRAGMA query_only = 1");
  Execute("PRAGMA cell_size_check = 1");
  // A sort collects as many bytes before it orders them, and cannot be broken off while it does.
  // More makes no statement faster.
  Execute("PRAGMA cache_size = -8000");
  RegisterFunctions(native, function_error_);
  guard_.StandAt(native);
}

void Database::Execute(const char* text) {
  const int code = sqlite3_exec(native_.get(), text, nullptr, nullptr, nullptr);
  if (code != SQLITE_OK) throw CannotOpen(code);
}

Error Database::CannotOpen(int code) const {
  sqlite3* native = native_.get();
  const auto say = [](std::string why) { return Error(ErrorNumber::kConnection, std::move(why)); };
  if (native == nullptr || Classify(code) == Failure::kNoMemory) return OutOfMemory();
  const Header header(native);
  switch (Classify(code)) {
    case Failure::kLocked:
    case Failure::kInterrupted:
      return say(Failed(code, "").Description());
    case Failure::kNotADatabase:
      if (header.IsTooNew()) {
        return say(
            fmt::format("its file format is newer than SQLite {} reads", sqlite3_libversion()));
      }
      return say(std::string(Meaning(Failure::kNotADatabase)));
    case Failure::kNoAccess:
    case Failure::kNoWalIndex:
      if (header.IsWriteAhead()) return say(std::string(Meaning(Failure::kNoWalIndex)));
      if (const int cause = sqlite3_system_errno(native); cause != 0) {
        return say(fmt::format("{} ({})", Meaning(Failure::kNoAccess),
                               std::generic_category().message(cause)));
      }
      return say(Explain(code, native));
    default:
      return say(Explain(code, native));
  }
}

bool Database::IsInPlace() const {
  int moved = 0;
  sqlite3_file_control(native_.get(), "main", SQLITE_FCNTL_HAS_MOVED, &moved);
  return moved == 0;
}

std::int64_t Database::BeginState(Watch& watch) {
  const Running running(*this, watch);
  try {
    const bool row = Step(begin_.get(), "beginning to read the books");
    sqlite3_reset(begin_.get());
    // The lock is taken with the first reading, and that waits for writers.
    if (row || !Step(schema_version_.get(), "waiting for the books")) {
      throw Error(ErrorNumber::kQueryRefused, "the books have no schema version");
    }
    const std::int64_t version = sqlite3_column_int64(schema_version_.get(), 0);
    sqlite3_reset(schema_version_.get());
    // It changes with every write of another connection.
    if (Step(data_version_.get(), "looking whether the books have changed")) {
      column_check_.BeginState(sqlite3_column_int64(data_version_.get(), 0));
    }
    sqlite3_reset(data_version_.get());
    return version;
  } catch (...) {
    sqlite3_reset(begin_.get());
    sqlite3_reset(schema_version_.get());
    sqlite3_reset(data_version_.get());
    throw;
  }
}

bool Database::EndState() noexcept {
  if (sqlite3_get_autocommit(native_.get()) != 0) return true;
  const int code = sqlite3_step(end_.get());
  sqlite3_reset(end_.get());
  return code == SQLITE_DONE && sqlite3_get_autocommit(native_.get()) != 0;
}

std::optional<std::int64_t> Database::NumberNow(sqlite3_stmt* statement) {
  // Without a watch the busy handler does not wait.
  std::optional<std::int64_t> number;
  if (sqlite3_step(statement) == SQLITE_ROW) number = sqlite3_column_int64(statement, 0);
  sqlite3_reset(statement);
  return number;
}

std::optional<std::int64_t> Database::SchemaVersionNow() {
  return NumberNow(schema_version_.get());
}

bool Database::Look() {
  looked_at_ = NumberNow(data_version_.get());
  return looked_at_.has_value();
}

bool Database::JoinState(const Database& other) {
  const bool begun = sqlite3_step(begin_.get()) == SQLITE_DONE;
  sqlite3_reset(begin_.get());
  // The state begins with this first reading.
  const std::optional<std::int64_t> now =
      begun ? NumberNow(data_version_.get()) : std::optional<std::int64_t>();
  if (!now || now != looked_at_) {
    static_cast<void>(EndState());
    return false;
  }
  column_check_.BeginState(*now, other.column_check_);
  return true;
}

bool Database::IsOnTheFileOf(const Database& other) const {
  const auto name = [](const Database& one) {
    return std::string_view(sqlite3_db_filename(one.native_.get(), "main"));
  };
  // Twice, so that neither can have been put into the place of the other meanwhile.
  return name(*this) == name(other) && other.IsInPlace() && IsInPlace() && other.IsInPlace();
}

Database::Running::Running(Database& database, Watch& watch, const sql::Catalog* catalog)
    : database_(database), permission_(database.guard_, catalog) {
  database_.watch_ = &watch;
  database_.function_error_.reset();
  watch.Start();
}

Database::Running::~Running() {
  database_.watch_->Pause();
  database_.watch_ = nullptr;
}

NativeStatement Database::Prepare(const std::string& text) {
  sqlite3_stmt* statement = nullptr;
  const int code = sqlite3_prepare_v3(native_.get(), text.c_str(),
                                      static_cast<int>(text.size()) + 1, 0, &statement, nullptr);
  NativeStatement owner(statement);
  if (code != SQLITE_OK) throw Failed(code, "preparing a statement");
  return owner;
}

Database::Prepared Database::PrepareReport(const std::string& text) {
  guard_.ClearTouched();
  NativeStatement statement = Prepare(text);
  return {std::move(statement), guard_.Touched()};
}

void Database::CheckColumns(std::span<const TableColumn> columns, Watch& watch) {
  const auto turn = column_check_.Turn();
  const Running running(*this, watch);
  column_check_.Check(*this, columns);
}

bool Database::Step(sqlite3_stmt* statement, std::string_view doing) {
  const int code = sqlite3_step(statement);
  if (code != SQLITE_ROW && code != SQLITE_DONE) throw Failed(code, doing);
  return code == SQLITE_ROW;
}

Error Database::Failed(int code, std::string_view doing) const {
  const auto told = [&](const Error& error) { return doing.empty() ? error : error.While(doing); };
  const auto refused = [&](std::string why) {
    return told(Error(ErrorNumber::kQueryRefused, std::move(why)));
  };
  if (function_error_) return told(*function_error_);
  const Failure failure = Classify(code);
  if (failure == Failure::kNoMemory || guard_.RanOut()) return told(OutOfMemory());
  const Stop stop = watch_ != nullptr ? watch_->Check() : Stop::kNone;
  if (failure == Failure::kInterrupted || failure == Failure::kLocked) {
    if (stop == Stop::kCancelled) return refused("it was cancelled");
  }
  if (failure == Failure::kLocked && stop == Stop::kTimeLimit) {
    return refused(fmt::format("{} and were not let go within the time limit of {}",
                               Meaning(failure), LimitText(*watch_)));
  }
  if (failure == Failure::kInterrupted && stop == Stop::kTimeLimit) {
    return refused(fmt::format("the time limit of {} was reached", LimitText(*watch_)));
  }
  // A refused function or table has no code of its own everywhere.
  if (!guard_.Refusal().empty()) return refused(guard_.Refusal());
  // The engine has no code of its own for it.
  if (failure == Failure::kOther &&
      std::string_view(sqlite3_errmsg(native_.get())) == "integer overflow") {
    return told(Error(ErrorNumber::kOverflow, "a whole number leaves its range"));
  }
  return refused(Explain(code, native_.get()));
}

int Database::OnProgress(void* database) noexcept {
  const Watch* watch = static_cast<Database*>(database)->watch_;
  return watch != nullptr && watch->Check() != Stop::kNone ? 1 : 0;
}

int Database::OnBusy(void* database, int attempts) noexcept {
  const Watch* watch = static_cast<Database*>(database)->watch_;
  if (watch == nullptr || watch->Check() != Stop::kNone) return 0;
  std::this_thread::sleep_for(std::min(std::chrono::milliseconds(1 + attempts), kLongestNap));
  return 1;
}

}  // namespace pstolvane1::sqlite
