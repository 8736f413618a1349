#include "session/engine/Engines.h"

#include <filesystem>
#include <system_error>

#include "session/data/Error.h"
#include "session/engine/ConnectionString.h"
#include "session/engine/sqlite/SqliteProvider.h"

namespace pstolvane1 {
namespace {

std::string FileOf(const ConnectionTarget& target) {
  std::error_code unreadable;
  if (target.other_path.empty() || std::filesystem::exists(target.path, unreadable)) {
    return target.path;
  }
  return std::filesystem::exists(target.other_path, unreadable) ? target.other_path : target.path;
}

}  // namespace

std::shared_ptr<Connection> NewConnection() { return Connection::New(OpenDatabase); }

std::shared_ptr<Provider> OpenDatabase(const std::string& connection_string,
                                       std::chrono::milliseconds time_limit) {
  const ConnectionTarget target = ReadConnectionString(connection_string);
  if (target.engine != EngineKind::kSqlite) {
    throw Error(ErrorNumber::kConnection, "The connection string names " +
                                              std::string(NameOf(target.engine)) +
                                              ", and this build of the library has SQLite only.");
  }
  return std::make_shared<sqlite::SqliteProvider>(FileOf(target), time_limit);
}

}  // namespace pstolvane1
