// Ways to a PostgreSQL server that lead nowhere, are cut, or end while nobody reads; and what is
// left behind on the server and here once a fetch has gone wrong.
#include <csignal>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <optional>
#include <thread>

#include "tests/engine/BothPaths.h"
#include "tests/server/OwnServer.h"
#include "tests/server/Server.h"
#include "tests/server/Wire.h"

namespace pstolvane1 {
namespace {

using std::chrono::seconds;
using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

constexpr const char* kSlow =
    "select count(*) as n from t a, t b, t c, t d where a.id + b.id = c.id - d.id";

class Clock {
 public:
  [[nodiscard]] milliseconds Passed() const {
    return std::chrono::duration_cast<milliseconds>(std::chrono::steady_clock::now() - begin_);
  }

 private:
  const std::chrono::steady_clock::time_point begin_ = std::chrono::steady_clock::now();
};

class ServerWire : public OnEitherPath {};

INSTANTIATE_TEST_SUITE_P(OnBothPaths, ServerWire, testing::ValuesIn(kBothPaths),
                         [](const auto& path) { return NameOf(path.param); });

// --- Nobody who could be talked to

TEST_P(ServerWire, SomebodyWhoSaysNothingIsGivenUpInTheTimeOfTheConnectionString) {
  const Stranger silent;
  const auto connection = NewConnection();
  connection->CommandTimeout(0);
  const Clock clock;
  EXPECT_THAT(OpenError(*connection, silent.ConnectionString() + " connect_timeout=1", GetParam()),
              AllOf(StartsWith("501 The books \"postgres\" on \"127.0.0.1:"),
                    EndsWith("\" cannot be opened: the time limit of 1 s was reached.")));
  EXPECT_LT(clock.Passed(), seconds(10));
}

TEST_P(ServerWire, SomebodyElseAtThePort) {
  const Stranger web("HTTP/1.1 400 Bad Request\r\n\r\n");
  const auto connection = NewConnection();
  EXPECT_THAT(OpenError(*connection, web.ConnectionString(), GetParam()),
              AllOf(StartsWith("501 The books \"postgres\" on \"127.0.0.1:"),
                    HasSubstr("cannot be opened: "), HasSubstr("received invalid response")));
}

TEST_P(ServerWire, AServerThatIsTooOld) {
  using namespace std::string_literals;
  const std::string version = "server_version\0"s + "13.4\0"s;
  const Stranger old("R\0\0\0\x08\0\0\0\0"s + "S\0\0\0"s + static_cast<char>(4 + version.size()) +
                     version + "Z\0\0\0\x05I"s);
  const auto connection = NewConnection();
  EXPECT_THAT(OpenError(*connection, old.ConnectionString() + " sslmode=disable gssencmode=disable",
                        GetParam()),
              AllOf(StartsWith("501 The books \"postgres\" on \"127.0.0.1:"),
                    EndsWith("\" cannot be opened: the server is PostgreSQL 13.4, and the reports "
                             "need 14 or newer.")));
}

TEST_P(ServerWire, AServerThatIsShuttingDownServesWhoIsThere) {
  const OwnServer server;
  server.Run(kThousand);
  const auto there = Opened(server.ConnectionString());
  EXPECT_EQ(Cell(there, kCount, GetParam()), "1000");
  pid_t first = 0;
  std::ifstream(server.Folder() + "/data/postmaster.pid") >> first;
  kill(first, SIGTERM);
  const auto late = NewConnection();
  std::string told;
  for (const Clock clock; told.empty() && clock.Passed() < kHangs;) {
    told = OpenError(*late, server.ConnectionString(), GetParam());
    if (told.empty()) late->Close();
  }
  EXPECT_THAT(told, AllOf(StartsWith("501 The books \"postgres\" on \"/tmp/pst-own-"),
                          EndsWith("FATAL: the database system is shutting down.")));
  EXPECT_EQ(Cell(there, kCount, GetParam()), "1000");
  there->Close();
  server.Stop();
  server.Resume();
  EXPECT_EQ(OpenError(*late, server.ConnectionString(), GetParam()), "");
  EXPECT_EQ(Cell(late, kCount, GetParam()), "1000");
}

// --- A way that is cut, which nobody is told

TEST_P(ServerWire, CutUnderAFetchItEndsAtTheTimeLimitAndTheNextOneWorks) {
  const OwnServer server;
  server.Run(kThousand);
  Wire wire(server.Folder());
  const auto connection = Opened(wire.ConnectionString());
  connection->CommandTimeout(2);
  const Clock clock;
  std::string error;
  if (GetParam() == Path::kAtOnce) {
    std::thread cutting([&] {
      std::this_thread::sleep_for(milliseconds(300));
      wire.CutWhatIs();
    });
    error = FetchError(connection, kSlow, GetParam());
    cutting.join();
  } else {
    bool cut = false;
    (void)Fetch(connection, kManyRows, GetParam(), error, [&](std::int32_t) {
      if (!std::exchange(cut, true)) wire.CutWhatIs();
    });
  }
  EXPECT_THAT(error,
              AllOf(StartsWith("-2147217900 "), EndsWith("the time limit of 2 s was reached")));
  EXPECT_LT(clock.Passed(), seconds(30));
  EXPECT_EQ(Cell(connection, kCount, GetParam()), "1000");
}

TEST_P(ServerWire, CutWhileNobodyReadsTheNextFetchSimplyWorks) {
  const OwnServer server;
  server.Run(kThousand);
  Wire wire(server.Folder());
  const auto connection = Opened(wire.ConnectionString());
  {
    // So that several sessions rest.
    const Connection::OneState state(connection);
    EXPECT_EQ(Cell(connection, kCount, GetParam()), "1000");
    EXPECT_EQ(Cell(connection, kCount, GetParam()), "1000");
  }
  wire.CutWhatIs();
  std::this_thread::sleep_for(milliseconds(1100));
  const Clock clock;
  EXPECT_EQ(Cell(connection, kCount, GetParam()), "1000");
  EXPECT_LT(clock.Passed(), seconds(15)) << "all that rested are given up with the first";
}

TEST_P(ServerWire, ASessionThatTheServerEndsBecauseNobodyReadsIsReplaced) {
  const OwnServer server;
  server.Run(kThousand);
  const auto connection =
      Opened(server.ConnectionString() + " options='-c idle_session_timeout=50'");
  for (int fetch = 0; fetch < 3; ++fetch) {
    EXPECT_EQ(Cell(connection, kCount, GetParam()), "1000");
    std::this_thread::sleep_for(milliseconds(250));
  }
}

// --- What is left behind

std::size_t OpenFiles() {
  const std::filesystem::directory_iterator files("/proc/self/fd");
  return static_cast<std::size_t>(std::distance(begin(files), end(files)));
}

TEST_P(ServerWire, NothingIsLeftBehindOnTheServerOrHere) {
  const OwnServer server;
  server.Run(std::string(kThousand) +
             "; CREATE TABLE secret (id int); CREATE ROLE clerk LOGIN; GRANT "
             "SELECT ON t TO clerk");
  const auto sessions = [&](const std::string& of) {
    return server.Run("SELECT count(*) FROM pg_stat_activity WHERE application_name = 'reader'" +
                      of);
  };
  // The server needs a moment to notice who has gone.
  const auto none_left = [&](const std::string& of) {
    const Clock clock;
    while (sessions(of) != "0" && clock.Passed() < seconds(10)) {
      std::this_thread::sleep_for(milliseconds(20));
    }
    return sessions(of) == "0";
  };
  const std::size_t files = OpenFiles();
  for (int round = 0; round < 2; ++round) {
    const auto connection =
        Opened(server.ConnectionString() + " user=clerk application_name=reader");
    connection->CommandTimeout(1);
    EXPECT_THAT(FetchError(connection, "select id from secret", GetParam()),
                EndsWith("permission denied for table secret"));
    EXPECT_THAT(FetchError(connection, "select id from missing", GetParam()),
                HasSubstr("unknown table"));
    EXPECT_THAT(FetchError(connection, "select 1 / (id - 500) as n from t", GetParam()),
                HasSubstr("division by zero"));
    EXPECT_THAT(FetchError(connection, kSlow, GetParam()), EndsWith("was reached"));
    connection->CommandTimeout(20);
    {
      // A rowset that goes while it is fetched.
      const RecordsetPtr rowset = Recordset::New();
      rowset->Open(kManyRows, connection, adOpenStatic, adLockReadOnly, adAsyncExecuteFetch);
      std::this_thread::sleep_for(milliseconds(20));
      if (round == 0) connection->Cancel();
    }
    EXPECT_TRUE(none_left(" AND state = 'active'"));
    EXPECT_TRUE(none_left(" AND backend_xmin IS NOT NULL")) << "no state is held";
    EXPECT_LE(std::stoi(sessions("")), 6);
    EXPECT_EQ(Cell(connection, kCount, GetParam()), "1000");
    connection->Close();
    EXPECT_TRUE(none_left(""));
    const auto refused = NewConnection();
    EXPECT_NE(OpenError(*refused, server.ConnectionString() + " user=nobody_known", GetParam()),
              "");
    EXPECT_NE(OpenError(*refused, server.ConnectionString() + " dbname=nowhere", GetParam()), "");
  }
  const Clock clock;
  while (OpenFiles() > files && clock.Passed() < seconds(10)) PumpUntil([] { return true; });
  EXPECT_LE(OpenFiles(), files);
}

}  // namespace
}  // namespace pstolvane1
