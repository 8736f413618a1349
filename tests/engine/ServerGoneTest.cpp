// A PostgreSQL server that stops, hangs or is killed before, during and after a fetch: an error on
// both paths, no end that never comes, and the connection goes on when the server is there again.
#include <csignal>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <optional>
#include <random>
#include <thread>

#include "session/engine/postgres/PostgresProvider.h"
#include "tests/engine/BothPaths.h"
#include "tests/server/OwnServer.h"
#include "tests/server/Server.h"

namespace pstolvane1 {
namespace {

using testing::AllOf;
using testing::AnyOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

// In the server's own words, which ask for no order: a thousand million rows, of which the first
// come at once and the server is always still sending.
constexpr const char* kEndlessRows =
    "whole Id, whole Other: SELECT a.id, b.id FROM @t a, @t b, @t c";
constexpr const char* kCountPlain = "whole N: SELECT count(*) FROM @t";

std::shared_ptr<Provider> OpenWithPlainText(const std::string& connection_string,
                                            milliseconds limit) {
  return std::make_shared<postgres::PostgresProvider>(connection_string, limit, PlainServerText);
}

std::shared_ptr<Connection> Opened(const OwnServer& server, bool plain = false) {
  auto connection = plain ? Connection::New(OpenWithPlainText) : NewConnection();
  connection->CommandTimeout(30);
  connection->Open(server.ConnectionString() + " application_name=reader");
  return connection;
}

// The end that any fetch comes to whose server goes.
auto IsLost() {
  return AllOf(StartsWith("-2147217900 "),
               AnyOf(HasSubstr("the connection to the server was lost ("),
                     HasSubstr("terminating connection")));
}

// A server that has just begun refuses for a moment.
std::string CountOnceItRuns(const std::shared_ptr<Connection>& connection, Path path,
                            std::string_view count = kCount) {
  std::string cell;
  const auto end = std::chrono::steady_clock::now() + kHangs;
  while (cell != "1000" && std::chrono::steady_clock::now() < end) {
    cell = Cell(connection, count, path);
    if (cell != "1000") std::this_thread::sleep_for(milliseconds(20));
  }
  return cell;
}

class ServerGone : public testing::TestWithParam<Path> {
 protected:
  ServerGone() { server_.Run(kThousand); }
  const OwnServer server_;
};

INSTANTIATE_TEST_SUITE_P(OnBothPaths, ServerGone, testing::ValuesIn(kBothPaths),
                         [](const auto& path) { return NameOf(path.param); });

TEST_P(ServerGone, BeforeAFetch) {
  const auto connection = Opened(server_);
  EXPECT_EQ(Cell(connection, kCount, GetParam()), "1000");
  server_.Stop();
  for (int attempt = 0; attempt < 3; ++attempt) {
    EXPECT_THAT(FetchError(connection, kCount, GetParam()),
                AllOf(StartsWith("-2147217900 The books \"postgres\" on \"/tmp/pst-own-"),
                      HasSubstr("cannot be opened: connection to server on socket "),
                      AnyOf(EndsWith("No such file or directory. Is the server running locally and "
                                     "accepting connections on that socket?"),
                            HasSubstr("Connection refused"))));
  }
  connection->Close();
  EXPECT_THAT(OpenError(*connection, "", GetParam()), StartsWith("501 The books \"postgres\" on "));
  server_.Resume();
  EXPECT_EQ(OpenError(*connection, "", GetParam()), "");
  EXPECT_EQ(Cell(connection, kCount, GetParam()), "1000");
}

TEST_P(ServerGone, AfterAFetchItsRowsStay) {
  const auto connection = Opened(server_);
  std::string error;
  const RecordsetPtr rowset = Fetch(connection, "select id from t order by id", GetParam(), error);
  server_.Stop();
  EXPECT_EQ(error, "no error");
  rowset->Sort("id DESC");
  EXPECT_EQ(rowset->Int32(rowset->Column("id")), 1000);
  EXPECT_EQ(rowset->RecordCount(), 1000);
  server_.Resume();
  EXPECT_EQ(Cell(connection, kCount, GetParam()), "1000") << "without opening it again";
}

TEST_P(ServerGone, BetweenTheQueriesOfAReport) {
  const auto connection = Opened(server_);
  std::optional<Connection::OneState> state(connection);
  EXPECT_EQ(Cell(connection, kCount, GetParam()), "1000");
  server_.Halt();
  server_.Resume();
  EXPECT_EQ(FetchError(connection, kCount, GetParam()),
            "-2147217900 while preparing a statement: the state of the books that the report reads "
            "is gone, because the server has ended the session that held it");
  state.reset();
  EXPECT_EQ(Cell(connection, kCount, GetParam()), "1000");
}

TEST_P(ServerGone, WhileItDoesNotAnswer) {
  const auto connection = Opened(server_);
  EXPECT_EQ(Cell(connection, kCount, GetParam()), "1000");
  connection->CommandTimeout(1);
  server_.Freeze();
  const auto begin = std::chrono::steady_clock::now();
  for (int fetch = 0; fetch < 2; ++fetch) {
    EXPECT_THAT(FetchError(connection, kCount, GetParam()),
                AllOf(StartsWith("-2147217900 "), HasSubstr("the time limit of 1 s was reached")));
  }
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(20));
  server_.Thaw();
  EXPECT_EQ(CountOnceItRuns(connection, GetParam()), "1000");
}

TEST_P(ServerGone, WhileItDoesNotTakeInALongText) {
  const auto connection = Opened(server_);
  const std::string text = "select id from t where '" + std::string(400'000, 'a') + "' = 'a'";
  EXPECT_NE(connection->Translate(text), "") << "read beforehand, because it takes a while";
  const std::optional<Connection::OneState> state(connection);
  EXPECT_EQ(Cell(connection, kCount, GetParam()), "1000");
  connection->CommandTimeout(1);
  server_.Freeze();
  const auto begin = std::chrono::steady_clock::now();
  // Where the machine was so slow that the session has rested for more than a second, it is asked
  // first whether it is still there.
  EXPECT_THAT(FetchError(connection, text, GetParam()),
              AllOf(StartsWith("-2147217900 "),
                    AnyOf(HasSubstr(" while reading the rows: the time limit of 1 s"),
                          HasSubstr(" cannot be opened: the time limit of 1 s"))));
  EXPECT_LT(std::chrono::steady_clock::now() - begin, kHangs);
  server_.Thaw();
}

TEST_P(ServerGone, CancelOfAServerThatDoesNotAnswer) {
  const auto connection = Opened(server_);
  server_.Freeze();
  const RecordsetPtr rowset = Recordset::New();
  std::string error;
  rowset->FetchComplete = [&](const Error* failed, int, Recordset&) {
    error = failed ? Told(*failed) : "no error";
  };
  rowset->Open(kManyRows, connection, adOpenStatic, adLockReadOnly, adAsyncExecuteFetch);
  std::this_thread::sleep_for(milliseconds(50));
  connection->Cancel();
  PumpUntil([&] { return !error.empty(); });
  EXPECT_THAT(error, AllOf(StartsWith("-2147217900 "), HasSubstr("cancelled")));
  server_.Thaw();
  EXPECT_EQ(CountOnceItRuns(connection, GetParam()), "1000");
}

// --- Killed at any point

enum class End { kBackendEnded, kBackendKilled, kServerHalted, kServerKilled };
constexpr End kAllEnds[] = {End::kBackendEnded, End::kBackendKilled, End::kServerHalted,
                            End::kServerKilled};

std::string NameOf(End end) {
  constexpr const char* kNames[] = {"BackendEnded", "BackendKilled", "ServerHalted",
                                    "ServerKilled"};
  return kNames[static_cast<std::size_t>(end)];
}

constexpr unsigned kSeeds[] = {3, 17, 42, 101, 256, 999, 1789, 4711, 31337, 65537};

class ServerKilled : public testing::TestWithParam<std::tuple<Path, End>> {
 protected:
  ServerKilled() { server_.Run(kThousand); }

  // The process that sends the rows, once it has begun.
  [[nodiscard]] pid_t Sender() const {
    ServerSession watching(server_.ConnectionString());
    const auto end = std::chrono::steady_clock::now() + kHangs;
    while (std::chrono::steady_clock::now() < end) {
      const std::string found = watching.Run(
          "SELECT pid FROM pg_stat_activity WHERE application_name = 'reader' AND state = "
          "'active' AND query LIKE '%COPY (%'");
      if (!found.empty()) return std::stoi(found);
    }
    throw std::runtime_error("no statement runs");
  }

  void Strike(pid_t sender) const {
    switch (std::get<End>(GetParam())) {
      case End::kBackendEnded:
        kill(sender, SIGTERM);
        break;
      case End::kBackendKilled:
        KillAndAwaitAllAnew(sender);
        break;
      case End::kServerHalted:
        server_.Halt();
        break;
      case End::kServerKilled:
        server_.Kill();
        break;
    }
  }

  // The server ends all of its sessions and begins anew once it sees that one of them was killed.
  void KillAndAwaitAllAnew(pid_t sender) const {
    const std::string before = Checkpointer();
    kill(sender, SIGKILL);
    const auto end = std::chrono::steady_clock::now() + kHangs;
    while (std::chrono::steady_clock::now() < end) {
      const std::string now = Checkpointer();
      if (!now.empty() && now != before) break;
      std::this_thread::sleep_for(milliseconds(5));
    }
  }

  // The process of that work, or nothing while the server lets nobody in.
  [[nodiscard]] std::string Checkpointer() const {
    try {
      return server_.Run("SELECT pid FROM pg_stat_activity WHERE backend_type = 'checkpointer'");
    } catch (const std::exception&) {
      return "";
    }
  }

  void BringBack() const {
    const End end = std::get<End>(GetParam());
    if (end == End::kServerHalted || end == End::kServerKilled) server_.Resume();
  }

  const OwnServer server_;
};

INSTANTIATE_TEST_SUITE_P(AtTenPoints, ServerKilled,
                         testing::Combine(testing::ValuesIn(kBothPaths),
                                          testing::ValuesIn(kAllEnds)),
                         [](const auto& each) {
                           return NameOf(std::get<Path>(each.param)) +
                                  NameOf(std::get<End>(each.param));
                         });

TEST_P(ServerKilled, EndsTheFetchWithAnErrorAndTheConnectionGoesOn) {
  const Path path = std::get<Path>(GetParam());
  const auto connection = Opened(server_, true);
  for (const unsigned seed : kSeeds) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    // The point: a number of rows in the background, where they are told, else a time from the
    // statement's beginning.
    const auto rows = static_cast<std::int32_t>(random() % 400'000);
    const std::chrono::microseconds after(random() % 150'000);
    const auto begin = std::chrono::steady_clock::now();
    std::string error;
    if (path == Path::kAtOnce) {
      std::thread striker([&] {
        const pid_t sender = Sender();
        std::this_thread::sleep_for(after);
        Strike(sender);
      });
      error = FetchError(connection, kEndlessRows, path);
      striker.join();
    } else {
      bool struck = false;
      (void)Fetch(connection, kEndlessRows, path, error, [&](std::int32_t so_far) {
        if (struck || so_far < rows) return;
        struck = true;
        Strike(Sender());
      });
      EXPECT_TRUE(struck);
    }
    EXPECT_THAT(error, IsLost());
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(25))
        << "its time limit has not ended it";
    BringBack();
    ASSERT_EQ(CountOnceItRuns(connection, path, kCountPlain), "1000");
  }
}

}  // namespace
}  // namespace pstolvane1
