#include "tests/server/Server.h"

#include <atomic>
#include <cstdlib>
#include <libpq-fe.h>
#include <stdexcept>
#include <unistd.h>

namespace pstolvane1 {

std::string ServerConnection() {
  const char* connection = std::getenv("PST_POSTGRES");
  if (connection == nullptr || *connection == '\0') {
    throw std::runtime_error(
        "the test needs a PostgreSQL server: run it with ctest, or run 'scripts/postgres start' "
        "and "
        "set what 'scripts/postgres env' prints");
  }
  return connection;
}

ServerSession::ServerSession(const std::string& connection_string)
    : connection_(PQconnectdb(connection_string.c_str())) {
  if (PQstatus(connection_) == CONNECTION_OK) {
    PQsetNoticeReceiver(
        connection_, [](void*, const PGresult*) {}, nullptr);
    return;
  }
  const std::string words = PQerrorMessage(connection_);
  PQfinish(connection_);
  throw std::runtime_error(words);
}

ServerSession::~ServerSession() { PQfinish(connection_); }

std::string ServerSession::Run(const std::string& statements) {
  PGresult* result = PQexec(connection_, statements.c_str());
  const ExecStatusType status = PQresultStatus(result);
  const std::string words = PQresultErrorMessage(result);
  std::string cell;
  if (status == PGRES_TUPLES_OK && PQntuples(result) > 0) cell = PQgetvalue(result, 0, 0);
  PQclear(result);
  if (status == PGRES_FATAL_ERROR) throw std::runtime_error(words);
  return cell;
}

Scratch::Scratch(const std::string& statements) {
  static std::atomic<int> number = 0;
  name_ = "scratch_" + std::to_string(getpid()) + "_" + std::to_string(++number);
  connection_string_ = ServerConnection() + " options='-c search_path=" + name_ + "'";
  ServerSession writer(connection_string_);
  writer.Run("CREATE SCHEMA " + name_ + ";" + statements);
}

Scratch::~Scratch() {
  try {
    ServerSession(ServerConnection()).Run("DROP SCHEMA " + name_ + " CASCADE");
  } catch (const std::exception&) {
    // The server is thrown away as a whole.
  }
}

std::string Scratch::Run(const std::string& statements) {
  return ServerSession(connection_string_).Run(statements);
}

}  // namespace pstolvane1
