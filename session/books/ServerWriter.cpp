#include "session/books/ServerWriter.h"

#include <libpq-fe.h>
#include <vector>

#include "session/books/Schema.h"
#include "session/data/Error.h"
#include "session/engine/postgres/Errors.h"
#include "session/engine/postgres/Settings.h"
#include "session/sql/EngineText.h"

namespace pstolvane1::books {

ServerWriter::ServerWriter(const std::string& connection_string) {
  const postgres::Settings settings(connection_string);
  name_ = settings.Name();
  std::vector<const char*> keywords{"connect_timeout"};
  std::vector<const char*> values{"30"};
  for (const auto& [keyword, value] : settings.Keywords()) {
    keywords.push_back(keyword.c_str());
    values.push_back(value.c_str());
  }
  keywords.push_back(nullptr);
  values.push_back(nullptr);
  connection_.reset(PQconnectdbParams(keywords.data(), values.data(), 0));
  if (PQstatus(connection_.get()) != CONNECTION_OK) Fail();
  PQsetNoticeReceiver(
      connection_.get(), [](void*, const PGresult*) {}, nullptr);
  Execute("SET DateStyle = 'ISO, MDY'");
  Execute("BEGIN");
}

void ServerWriter::FailWith(const std::string& words) {
  throw Error(ErrorNumber::kConnection, "cannot write the books " + name_ + ": " + words);
}

void ServerWriter::Fail() { FailWith(postgres::WordsOf(connection_.get())); }

std::string ServerWriter::Ask(const std::string& statement) {
  const postgres::NativeResult result(PQexec(connection_.get(), statement.c_str()));
  const ExecStatusType status = PQresultStatus(result.get());
  if (status == PGRES_TUPLES_OK && PQntuples(result.get()) > 0) {
    return PQgetvalue(result.get(), 0, 0);
  }
  if (status != PGRES_COMMAND_OK && status != PGRES_TUPLES_OK) Fail();
  return "";
}

void ServerWriter::Execute(const std::string& statement) { static_cast<void>(Ask(statement)); }

int ServerWriter::CountTables() {
  if (Ask("SELECT current_schema()").empty()) {
    FailWith("the search_path names no schema to make tables in");
  }
  std::string names;
  for (const Table& table : Tables()) {
    names += (names.empty() ? "lower(" : ", lower(") + sql::QuotedText(table.name) + ")";
  }
  return std::stoi(
      Ask("SELECT count(*) FROM pg_class WHERE relkind IN ('r', 'v', 'm', 'f', 'p') AND "
          "relnamespace = current_schema()::regnamespace AND lower(relname) IN (" +
          names + ")"));
}

void ServerWriter::CreateTables() {
  Execute(PostgresCreateDomain());
  for (const Table& table : Tables()) Execute(PostgresCreateTable(table));
}

void ServerWriter::CreateIndexes(const Table& table) {
  for (const Index& index : table.indexes) Execute(PostgresCreateIndex(table, index));
}

void ServerWriter::Finish() {
  Execute("COMMIT");
  for (const Table& table : Tables()) {
    const std::string name = sql::QuotedName(table.name);
    const bool there = !Ask("SELECT to_regclass(" + sql::QuotedText(name) + ")").empty();
    if (there) Execute("VACUUM ANALYZE " + name);
  }
}

void ServerWriter::BeginRows(std::string_view table, const std::string& columns) {
  const std::string statement = "COPY " + sql::QuotedName(table) + " (" + columns + ") FROM STDIN";
  const postgres::NativeResult result(PQexec(connection_.get(), statement.c_str()));
  if (PQresultStatus(result.get()) != PGRES_COPY_IN) Fail();
}

void ServerWriter::AddRows(std::string_view lines) {
  if (PQputCopyData(connection_.get(), lines.data(), static_cast<int>(lines.size())) != 1) Fail();
}

void ServerWriter::EndRows() {
  if (PQputCopyEnd(connection_.get(), nullptr) != 1) Fail();
  const postgres::NativeResult result(PQgetResult(connection_.get()));
  if (PQresultStatus(result.get()) == PGRES_COMMAND_OK) {
    const postgres::NativeResult end(PQgetResult(connection_.get()));
    return;
  }
  Fail();
}

}  // namespace pstolvane1::books
