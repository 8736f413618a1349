#include "session/engine/postgres/Database.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>
#include <libpq-fe.h>
#include <poll.h>
#include <vector>

#include "session/data/OutOfMemory.h"
#include "session/engine/postgres/Errors.h"
#include "session/engine/postgres/Schema.h"

namespace pstolvane1::postgres {
namespace {

// How often a wait looks at its watch.
constexpr int kLookMilliseconds = 10;

constexpr int kOldestVersion = 140000;

// A session that has rested for longer may have been cut off without a word, as by a firewall. One
// that does not answer is not waited for until all the time is used up, because another may.
constexpr std::chrono::seconds kShortRest{1};
constexpr std::chrono::milliseconds kAnswers{5000};

std::chrono::milliseconds AnswerLimit(const Watch& watch) {
  return watch.Limit().count() <= 0 ? kAnswers : std::min(kAnswers, watch.Limit() / 4);
}

// What the emitted texts count on, what keeps the session from writing, and what lets the server
// notice at once that nobody waits for a statement any more. To compile the hundreds of expressions
// of a report takes the server longer than to run them. Where a table is spread over servers, each
// is to sum and join its part.
// Somebody may have made a function or an operator in a schema of the books that fits better than
// the server's own. No name is therefore looked for there: tables are named with their schemas.
constexpr const char* kSettings =
    "SELECT pg_catalog.set_config('pstolvane1.schemas',"
    " pg_catalog.current_schemas(false)::pg_catalog.text, false);"
    "SET search_path = pg_catalog;"
    "SET default_transaction_read_only = on;"
    "SET DateStyle = 'ISO, MDY';"
    "SET standard_conforming_strings = on;"
    "SET extra_float_digits = 1;"
    "SET idle_in_transaction_session_timeout = 0;"
    "SET jit = off;"
    "SET enable_partitionwise_aggregate = on;"
    "SET enable_partitionwise_join = on;"
    "SET client_connection_check_interval = 500";

constexpr const char* kHasCollation =
    "SELECT count(*) FROM pg_collation WHERE collname = 'und-x-icu' AND "
    "collnamespace = 'pg_catalog'::regnamespace";

Error Refused(std::string why) { return Error(ErrorNumber::kQueryRefused, std::move(why)); }

std::string LimitText(const Watch& watch) {
  return fmt::format("{:g} s", static_cast<double>(watch.Limit().count()) / 1000.0);
}

// Measures the time in which the server works.
class Running {
 public:
  explicit Running(Watch& watch) : watch_(watch) { watch_.Start(); }
  ~Running() { watch_.Pause(); }
  Running(const Running&) = delete;
  Running& operator=(const Running&) = delete;

 private:
  Watch& watch_;
};

}  // namespace

Database::Database(const Settings& settings, Watch& watch) {
  try {
    const Running running(watch);
    Watch connecting = watch.Within(settings.ConnectLimit());
    Connect(settings, connecting);
    CheckServer(connecting);
  } catch (const Error& error) {
    if (error.Number() == ErrorNumber::kOutOfMemory) throw error.While("opening the books");
    throw Error(ErrorNumber::kConnection, error.Description());
  }
}

void Database::Connect(const Settings& settings, Watch& watch) {
  std::vector<const char*> keywords;
  std::vector<const char*> values;
  for (const auto& [keyword, value] : settings.Keywords()) {
    keywords.push_back(keyword.c_str());
    values.push_back(value.c_str());
  }
  keywords.push_back(nullptr);
  values.push_back(nullptr);
  native_.reset(PQconnectStartParams(keywords.data(), values.data(), 0));
  if (!native_) throw OutOfMemory();
  if (PQstatus(native_.get()) == CONNECTION_BAD) throw FailureOf(native_.get());
  PQsetNoticeReceiver(
      native_.get(), [](void*, const PGresult*) {}, nullptr);
  for (PostgresPollingStatusType step = PGRES_POLLING_WRITING; step != PGRES_POLLING_OK;) {
    if (step == PGRES_POLLING_FAILED) throw FailureOf(native_.get());
    WaitFor(step == PGRES_POLLING_READING ? POLLIN : POLLOUT, watch);
    step = PQconnectPoll(native_.get());
  }
  // A server that takes nothing in would hold whoever sends a long text, or goes.
  if (PQsetnonblocking(native_.get(), 1) != 0) throw Lost();
}

sql::Characters Database::TextCharacters() const { return TextCharactersOf(native_.get()); }

void Database::CheckServer(Watch& watch) {
  const auto* encoding = PQparameterStatus(native_.get(), "server_encoding");
  if (PQserverVersion(native_.get()) < kOldestVersion) {
    throw Refused(fmt::format("the server is PostgreSQL {}, and the reports need 14 or newer",
                              PQparameterStatus(native_.get(), "server_version")));
  }
  if (encoding != nullptr && std::string_view(encoding) == "SQL_ASCII") {
    throw Refused(
        "the database's encoding is SQL_ASCII, which does not say what its texts mean; make it "
        "with "
        "the encoding UTF8");
  }
  static_cast<void>(Run(kSettings, watch));
  const NativeResult found = Run(kHasCollation, watch);
  if (std::string_view(PQgetvalue(found.get(), 0, 0)) == "0") {
    throw Refused(
        "the server has no collation und-x-icu, which the comparison of texts needs: it was built "
        "without ICU");
  }
}

void Database::CheckWatch(const Watch& watch) {
  switch (watch.Check()) {
    case Stop::kCancelled:
      throw Refused("it was cancelled");
    case Stop::kTimeLimit:
      throw Refused("the time limit of " + LimitText(watch) + " was reached");
    case Stop::kNone:
      break;
  }
}

void Database::WaitFor(short events, const Watch& watch) {
  while (true) {
    CheckWatch(watch);
    const int socket = PQsocket(native_.get());
    if (socket < 0) throw Lost();
    pollfd waited{socket, events, 0};
    if (::poll(&waited, 1, kLookMilliseconds) > 0) return;
  }
}

void Database::Send(const std::string& statements) {
  if (PQsendQuery(native_.get(), statements.c_str()) == 0) throw Lost();
}

NativeResult Database::NextResult(const Watch& watch) {
  while (PQisBusy(native_.get()) != 0) {
    const bool unsent = PQflush(native_.get()) == 1;
    WaitFor(static_cast<short>(unsent ? POLLIN | POLLOUT : POLLIN), watch);
    if (PQconsumeInput(native_.get()) == 0) throw Lost();
  }
  return NativeResult(PQgetResult(native_.get()));
}

void Database::Drain(const Watch& watch) {
  while (NextResult(watch)) {
  }
}

NativeResult Database::Run(const std::string& statements, Watch& watch) {
  const Running running(watch);
  Send(statements);
  NativeResult rows;
  while (NativeResult result = NextResult(watch)) {
    const ExecStatusType status = PQresultStatus(result.get());
    if (status == PGRES_TUPLES_OK) rows = std::move(result);
    if (status != PGRES_FATAL_ERROR) continue;
    const Error error = IsLost() ? Lost() : ErrorOf(result.get());
    if (!IsLost()) Drain(watch);
    throw error;
  }
  return rows;
}

void Database::SendCopy(const std::string& statements) { Send(statements); }

void Database::AwaitCopy(Watch& watch) {
  while (NativeResult result = NextResult(watch)) {
    const ExecStatusType status = PQresultStatus(result.get());
    if (status == PGRES_COPY_OUT) return;
    if (status != PGRES_FATAL_ERROR) continue;
    const Error error = IsLost() ? Lost() : ErrorOf(result.get());
    if (!IsLost()) Drain(watch);
    throw error;
  }
  throw Refused("the server gave no rows");
}

bool Database::NextPiece(NativeBuffer& piece, std::size_t& size, Watch& watch) {
  char* buffer = nullptr;
  int got = PQgetCopyData(native_.get(), &buffer, 1);
  while (got == 0) {
    WaitFor(POLLIN, watch);
    if (PQconsumeInput(native_.get()) == 0) throw Lost();
    got = PQgetCopyData(native_.get(), &buffer, 1);
  }
  piece.reset(buffer);
  if (got > 0) {
    size = static_cast<std::size_t>(got);
    return true;
  }
  while (NativeResult result = NextResult(watch)) {
    if (PQresultStatus(result.get()) != PGRES_FATAL_ERROR) continue;
    const Error error = IsLost() ? Lost() : ErrorOf(result.get());
    if (!IsLost()) Drain(watch);
    throw error;
  }
  if (IsLost()) throw Lost();
  return false;
}

bool Database::LetGo() noexcept {
  if (IsLost()) return false;
  rests_since_ = Watch::Clock::now();
  switch (PQtransactionStatus(native_.get())) {
    case PQTRANS_IDLE:
      return true;
    case PQTRANS_INTRANS:
    case PQTRANS_INERROR:
      return PQsendQuery(native_.get(), "ROLLBACK") != 0;
    default:
      return false;  // a statement runs still
  }
}

bool Database::TakeUp(Watch& watch) noexcept {
  try {
    const Running running(watch);
    Watch answering = watch.Within(AnswerLimit(watch));
    Drain(answering);
    // What the server said when it went is read now, and then that it went.
    pollfd waiting{PQsocket(native_.get()), POLLIN, 0};
    while (waiting.fd >= 0 && ::poll(&waiting, 1, 0) > 0) {
      if (PQconsumeInput(native_.get()) == 0) return false;
    }
    const bool rested = Watch::Clock::now() - rests_since_ > kShortRest;
    if (rested && !IsLost()) static_cast<void>(Run("", answering));
    return !IsLost() && PQtransactionStatus(native_.get()) == PQTRANS_IDLE;
  } catch (...) {
    return false;
  }
}

bool Database::IsLost() const noexcept { return PQstatus(native_.get()) == CONNECTION_BAD; }

bool Database::Failed() const noexcept {
  return PQtransactionStatus(native_.get()) == PQTRANS_INERROR;
}

Error Database::Lost() const {
  const Error failure = FailureOf(native_.get());
  if (failure.Number() == ErrorNumber::kOutOfMemory) return failure.While("asking the server");
  return Refused("the connection to the server was lost (" + failure.Description() + ")");
}

}  // namespace pstolvane1::postgres
