// A query's rows through a rowset, on either of its two paths.
#pragma once

#include <chrono>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <string_view>

#include "session/data/Connection.h"
#include "session/data/MessageLoop.h"
#include "session/data/Recordset.h"
#include "session/engine/Engines.h"
#include "tests/engine/Reading.h"

namespace pstolvane1 {

enum class Path { kAtOnce, kInBackground };
inline constexpr Path kBothPaths[] = {Path::kAtOnce, Path::kInBackground};

inline std::string NameOf(Path path) { return path == Path::kAtOnce ? "AtOnce" : "InBackground"; }

// For gtest, so that a failure tells the path.
inline void PrintTo(Path path, std::ostream* out) { *out << NameOf(path); }

// Longer than anything here lasts that goes on; what is over it hangs.
inline constexpr std::chrono::seconds kHangs{60};

inline void PumpUntil(const std::function<bool()>& done) {
  const auto end = std::chrono::steady_clock::now() + kHangs;
  while (!done() && std::chrono::steady_clock::now() < end) (void)WaitForEvents(milliseconds(20));
  EXPECT_TRUE(done()) << "it hangs";
}

inline std::string Told(const Error& error) {
  return std::to_string(static_cast<std::int32_t>(error.Number())) + " " + error.Description();
}

// The rowset, and how it went: "no error" or "NUMBER DESCRIPTION". on_rows is told in the
// background how many rows have come so far.
inline RecordsetPtr Fetch(const std::shared_ptr<Connection>& connection, std::string_view select,
                          Path path, std::string& error,
                          const std::function<void(std::int32_t)>& on_rows = {}) {
  const RecordsetPtr rowset = Recordset::New();
  error = "no error";
  try {
    if (path == Path::kAtOnce) {
      rowset->Open(select, connection);
      return rowset;
    }
    bool complete = false;
    rowset->FetchProgress = [&](std::int32_t rows, std::int32_t, int, Recordset&) {
      if (on_rows) on_rows(rows);
    };
    rowset->FetchComplete = [&](const Error* failed, int status, Recordset&) {
      EXPECT_EQ(status, failed ? adStatusErrorsOccurred : adStatusOK);
      if (failed) error = Told(*failed);
      complete = true;
    };
    rowset->Open(select, connection, adOpenStatic, adLockReadOnly, adAsyncExecuteFetch);
    PumpUntil([&] { return complete; });
    rowset->FetchProgress = nullptr;
    rowset->FetchComplete = nullptr;
  } catch (const Error& failed) {
    error = Told(failed);
  }
  return rowset;
}

inline std::string FetchError(const std::shared_ptr<Connection>& connection,
                              std::string_view select, Path path) {
  std::string error;
  (void)Fetch(connection, select, path, error);
  return error;
}

// The first cell of the first row, or the error.
inline std::string Cell(const std::shared_ptr<Connection>& connection, std::string_view select,
                        Path path) {
  std::string error;
  const RecordsetPtr rowset = Fetch(connection, select, path, error);
  return error != "no error" ? error : rowset->Fields()(0).Value().ToText();
}

// "" when it was opened, else the error. What the events tell is the same.
inline std::string OpenError(Connection& connection, std::string_view connection_string,
                             Path path) {
  std::string told = "not told";
  connection.ConnectComplete = [&](const Error* error, int, Connection&) {
    told = error ? Told(*error) : "";
  };
  std::string raised;
  try {
    connection.Open(connection_string, "", "",
                    path == Path::kAtOnce ? adOptionUnspecified : adAsyncConnect);
    PumpUntil([&] { return told != "not told"; });
    raised = told;
  } catch (const Error& error) {
    raised = Told(error);
  }
  connection.ConnectComplete = nullptr;
  EXPECT_EQ(raised, told);
  EXPECT_EQ(connection.State(), told.empty() ? adStateOpen : adStateClosed);
  return told;
}

// A table of a thousand rows, and what is asked of it.
inline constexpr const char* kThousand =
    "CREATE TABLE t (id int); INSERT INTO t SELECT generate_series(1, 1000)";
inline constexpr const char* kCount = "select count(*) as n from t";
inline constexpr const char* kManyRows = "select a.id, b.id as other from t a, t b, t c";

// Tests that open their books on the path that they are given.
class OnEitherPath : public testing::TestWithParam<Path> {
 protected:
  // What is asked of the books may take a while.
  static std::shared_ptr<Connection> Opened(const std::string& connection_string) {
    auto connection = NewConnection();
    connection->CommandTimeout(20);
    EXPECT_EQ(OpenError(*connection, connection_string, GetParam()), "");
    return connection;
  }
};

}  // namespace pstolvane1
