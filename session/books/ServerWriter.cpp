#include "session/books/ServerWriter.h"

#include <libpq-fe.h>
#include <vector>

#include "session/books/Schema.h"
#include "session/data/Error.h"
#include "session/engine/postgres/Database.h"
#include "session/engine/postgres/Errors.h"
#include "session/engine/postgres/Schema.h"
#include "session/engine/postgres/Settings.h"
#include "session/sql/EngineText.h"

namespace pstolvane1::books {

ServerWriter::ServerWriter(const std::string& connection_string)
    : name_(postgres::Settings(connection_string).Name()) {
  Connect(connection_string);
  Execute("SET DateStyle = 'ISO, MDY'; SET lock_timeout = '30s'");
  schema_ = Ask("SELECT pg_catalog.current_schema()");
  // What others may have made in the schema is not called while indexes are made.
  Execute("SET search_path = pg_catalog");
  Execute("BEGIN");
  CheckWritable();
}

void ServerWriter::Connect(const std::string& connection_string) {
  const postgres::Settings settings(connection_string);
  try {
    Watch watch(settings.ConnectLimit());
    const postgres::Database can_be_read(settings, watch);
  } catch (const Error& error) {
    FailWith(error.Description());
  }
  std::vector<const char*> keywords;
  std::vector<const char*> values;
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
}

void ServerWriter::CheckWritable() {
  if (Ask("SELECT pg_is_in_recovery()") == "t") {
    FailWith("the server is in recovery: it follows another server, which alone can be written to");
  }
  if (Ask("SELECT current_setting('transaction_read_only')") == "on") {
    FailWith("the user's transactions are read-only (default_transaction_read_only is on)");
  }
}

std::string ServerWriter::TableIn(std::string_view table) const {
  return sql::QuotedName(schema_) + "." + sql::QuotedName(table);
}

void ServerWriter::FailWith(const std::string& words) {
  throw Error(ErrorNumber::kConnection,
              committed_ ? "the books " + name_ +
                               " are written, but the server could not count their rows: " + words
                         : "cannot write the books " + name_ + ": " + words);
}

void ServerWriter::Fail(const pg_result* result) {
  if (result == nullptr || PQstatus(connection_.get()) == CONNECTION_BAD) {
    FailWith(postgres::WordsOf(connection_.get()));
  }
  std::string words = postgres::ErrorOf(result).Description();
  // Which row of which table it was: "COPY Uom1, line 2".
  const char* context = PQresultErrorField(result, PG_DIAG_CONTEXT);
  if (context != nullptr && std::string_view(context).starts_with("COPY ")) {
    words += " (" + postgres::OneLine(context) + ")";
  }
  FailWith(words);
}

std::string ServerWriter::Ask(const std::string& statement) {
  const postgres::NativeResult result(PQexec(connection_.get(), statement.c_str()));
  const ExecStatusType status = PQresultStatus(result.get());
  if (status == PGRES_TUPLES_OK && PQntuples(result.get()) > 0) {
    return PQgetvalue(result.get(), 0, 0);
  }
  if (status != PGRES_COMMAND_OK && status != PGRES_TUPLES_OK) Fail(result.get());
  return "";
}

void ServerWriter::Execute(const std::string& statement) { static_cast<void>(Ask(statement)); }

int ServerWriter::CountTables() {
  if (schema_.empty()) {
    FailWith("the search_path names no schema to make tables in");
  }
  std::string names;
  for (const Table& table : Tables()) {
    names += (names.empty() ? "lower(" : ", lower(") + sql::QuotedText(table.name) + ")";
  }
  return std::stoi(
      Ask("SELECT count(*) FROM pg_class WHERE relkind IN ('r', 'v', 'm', 'f', 'p') AND "
          "relnamespace = " +
          sql::QuotedText(sql::QuotedName(schema_)) + "::regnamespace AND lower(relname) IN (" +
          names + ")"));
}

void ServerWriter::CreateTables() {
  Execute(PostgresCreateDomain(schema_));
  for (const Table& table : Tables()) Execute(PostgresCreateTable(table, schema_));
}

void ServerWriter::CreateIndexes(const Table& table) {
  const sql::Characters characters = postgres::TextCharactersOf(connection_.get());
  for (const Index& index : table.indexes) {
    Execute(PostgresCreateIndex(table, index, schema_, characters));
  }
}

void ServerWriter::Finish() {
  Execute("COMMIT");
  committed_ = true;
  for (const Table& table : Tables()) {
    const std::string name = TableIn(table.name);
    const bool there = !Ask("SELECT to_regclass(" + sql::QuotedText(name) + ")").empty();
    if (there) Execute("VACUUM (ANALYZE, SKIP_LOCKED) " + name);
  }
}

void ServerWriter::BeginRows(std::string_view table, const std::string& columns) {
  const std::string statement = "COPY " + TableIn(table) + " (" + columns + ") FROM STDIN";
  const postgres::NativeResult result(PQexec(connection_.get(), statement.c_str()));
  if (PQresultStatus(result.get()) != PGRES_COPY_IN) Fail(result.get());
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
  Fail(result.get());
}

}  // namespace pstolvane1::books
