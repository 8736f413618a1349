#include "session/engine/Engines.h"

#include "session/data/Error.h"
#include "session/engine/ConnectionString.h"
#include "session/engine/postgres/PostgresProvider.h"
#include "session/engine/sqlite/SqliteProvider.h"

namespace pstolvane1 {
namespace {

// One of them is enough: books need not have what no report is asked for.
constexpr std::string_view kChiefTables[] = {"Items1", "Desr1", "GodownItem1", "LedgerNames1",
                                             "Voucher1"};

bool HasTable(Provider& database, std::string_view table) {
  try {
    (void)database.Describe("select * from " + std::string(table));
    return true;
  } catch (const Error& refused) {
    if (refused.Number() != ErrorNumber::kQueryRefused) throw;
    return false;
  }
}

std::shared_ptr<Provider> OpenBooks(const std::string& connection_string,
                                    std::chrono::milliseconds time_limit) {
  std::shared_ptr<Provider> database = OpenDatabase(connection_string, time_limit);
  for (const std::string_view table : kChiefTables) {
    if (HasTable(*database, table)) return database;
  }
  const bool server = ReadConnectionString(connection_string).engine == EngineKind::kPostgresql;
  throw Error(
      ErrorNumber::kConnection,
      "The database " + NameOfDatabase(connection_string) + " holds no books: " +
          (server ? "no schema of the search_path that the user may use has one" : "it has none") +
          " of the tables Items1, Desr1, GodownItem1, "
          "LedgerNames1 and Voucher1.");
}

}  // namespace

std::string NameOfDatabase(const std::string& connection_string) {
  const bool server = ReadConnectionString(connection_string).engine == EngineKind::kPostgresql;
  return server ? postgres::Settings(connection_string).Name() : '"' + connection_string + '"';
}

std::shared_ptr<Connection> NewBooksConnection() { return Connection::New(OpenBooks); }

std::shared_ptr<Connection> NewConnection() { return Connection::New(OpenDatabase); }

std::shared_ptr<Provider> OpenDatabase(const std::string& connection_string,
                                       std::chrono::milliseconds time_limit) {
  const ConnectionTarget target = TargetOf(connection_string);
  if (target.engine == EngineKind::kPostgresql) {
    return std::make_shared<postgres::PostgresProvider>(connection_string, time_limit);
  }
  return std::make_shared<sqlite::SqliteProvider>(FileOf(target), time_limit);
}

}  // namespace pstolvane1
