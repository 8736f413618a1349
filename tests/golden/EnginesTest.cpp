// Sample books are larger than those of the cases, and nobody has reckoned their reports: the
// engines are held against each other, and each report is played on a cluster as well.
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <unistd.h>

#include "Play.h"
#include "ServerBooks.h"
#include "session/books/BooksFile.h"
#include "session/books/CheckBooks.h"
#include "session/books/CopyBooks.h"
#include "session/books/SampleBooks.h"
#include "session/books/Schema.h"
#include "session/data/Chunk.h"
#include "session/engine/Engines.h"
#include "session/sql/EngineText.h"
#include "tests/SourcePath.h"
#include "tests/server/OwnServer.h"

namespace pstolvane1::golden {
namespace {

class SampleFile {
 public:
  SampleFile() {
    std::filesystem::remove(path_);
    books::SampleBooks(path_, 4000);
  }
  ~SampleFile() {
    std::error_code ignored;
    std::filesystem::remove(path_, ignored);
  }
  SampleFile(const SampleFile&) = delete;
  SampleFile& operator=(const SampleFile&) = delete;

  [[nodiscard]] std::string Path() const { return path_; }

 private:
  const std::filesystem::path path_ = std::filesystem::temp_directory_path() /
                                      ("golden_sample_" + std::to_string(getpid()) + ".db");
};

// Books on the tests' server whose movements and document lines lie on two servers of their own.
class Cluster {
 public:
  void Spread() const {
    const std::string command = fmt::format("'{}' \"{}\" \"{}\" \"{}\"",
                                            SourcePath("scripts/spread"), books_.ConnectionString(),
                                            first_.ConnectionString(), second_.ConnectionString());
    if (std::system(command.c_str()) != 0) throw std::runtime_error(command + " failed");
  }
  // They hold these rows and no others.
  void Hold(const std::vector<TextTable>& tables) { rows_.Hold(tables); }
  [[nodiscard]] const std::string& ConnectionString() const { return books_.ConnectionString(); }
  std::string Run(const std::string& statements) { return books_.Run(statements); }
  [[nodiscard]] const OwnServer& Worker() const { return first_; }

 private:
  OwnServer first_, second_;
  Scratch books_;
  CaseRows rows_{books_.ConnectionString()};
};

// All that a case says of its call.
std::string CallText(const CaseFile& file) {
  std::string text;
  for (const auto& [what, value] : file.settings) text += what + " = " + value + "\n";
  for (const TextCall& call : file.calls) {
    text += call.operation + "\n";
    for (const TextArgument& argument : call.arguments) {
      text += argument.name + " = " + argument.value + "\n";
    }
  }
  return text;
}

TEST(Engines, GiveTheSameReportsOfSampleBooks) {
  const SampleFile file;
  const Scratch server;
  const Cluster cluster;
  (void)books::CopyBooks(file.Path(), server.ConnectionString());
  (void)books::CopyBooks(file.Path(), cluster.ConnectionString());
  cluster.Spread();
  std::set<std::string> calls;
  std::ptrdiff_t lines = 0;
  for (const std::string& name : AllCases()) {
    const CaseFile one = ReadCase(kCases + "/" + name, kCases);
    // Cases that differ in their books alone are one call here.
    if (!calls.insert(CallText(one)).second) continue;
    const auto report_of = [&](const std::string& books) {
      return Expectation(Play(one, Path::kSynchronous, books), {});
    };
    const std::string in_file = report_of(file.Path());
    EXPECT_EQ(in_file, report_of(server.ConnectionString())) << name << " on the server";
    EXPECT_EQ(in_file, report_of(cluster.ConnectionString())) << name << " on the cluster";
    lines += std::count(in_file.begin(), in_file.end(), '\n');
  }
  EXPECT_GT(lines, 20 * std::ssize(calls)) << "the calls find something";
}

// The paths take turns, so that both are played for every report.
TEST(ClusterBooks, GiveTheReportOfEveryCase) {
  Cluster cluster;
  books::CreateBooks(cluster.ConnectionString());
  cluster.Spread();
  Path path = Path::kSynchronous;
  for (const std::string& name : AllCases()) {
    const CaseFile file = ReadCase(kCases + "/" + name, kCases);
    cluster.Hold(file.books);
    const Outcome outcome = Play(file, path, cluster.ConnectionString());
    EXPECT_EQ(file.expected.Text(), ExpectationLike(file, outcome, path)) << name;
    path = path == Path::kSynchronous ? Path::kAsynchronous : Path::kSynchronous;
  }
}

// How opening a query of two rows in the place of one value ends.
std::string EndOfTwoRows(const std::string& connection_string) {
  const auto connection = NewConnection();
  connection->Open(connection_string);
  try {
    Recordset::New()->Open("select (select item_id from items1) as a from uom1", connection);
    return "no error";
  } catch (const Error& error) {
    return error.Description();
  }
}

TEST(ClusterBooks, AreInOrderAndCanBeCopiedBack) {
  const std::string movements =
      "SELECT count(*) || md5(string_agg(g::text, ' ' ORDER BY \"GodownItem_id\")) FROM "
      "\"GodownItem1\" g";
  Cluster cluster;
  books::SampleBooks(cluster.ConnectionString(), 2000);
  const std::string whole = cluster.Run(movements);
  cluster.Spread();
  EXPECT_TRUE(books::CheckBooks(cluster.ConnectionString()).empty());
  EXPECT_EQ(cluster.Run(movements), whole);
  Scratch one_server;
  (void)books::CopyBooks(cluster.ConnectionString(), one_server.ConnectionString());
  EXPECT_TRUE(books::CheckBooks(one_server.ConnectionString()).empty());
  EXPECT_EQ(one_server.Run(movements), whole);
  const SampleFile file;
  for (const std::string& books :
       {file.Path(), one_server.ConnectionString(), cluster.ConnectionString()}) {
    EXPECT_EQ(EndOfTwoRows(books),
              "while reading the rows: a subquery that stands for a value gave more than one row");
  }
}

std::int64_t CountMovements(Snapshot& state) {
  const std::shared_ptr<Cursor> cursor =
      state.Run("select count(*) as n from godownitem1", std::chrono::seconds(60));
  Chunk chunk(cursor->Columns());
  while (cursor->Read(chunk) > 0) {
  }
  return chunk.Get<std::int32_t>(0, 0);
}

TEST(ClusterBooks, SumTheirQuantitiesWhereTheMovementsLie) {
  Cluster cluster;
  books::CreateBooks(cluster.ConnectionString());
  cluster.Spread();
  cluster.Run(
      "INSERT INTO \"GodownItem1\" (\"GodownItem_id\", \"Item_id\") SELECT n, n % 10 FROM "
      "generate_series(1, 5000) n; ANALYZE \"GodownItem1\"");
  const std::string sums = OpenDatabase(cluster.ConnectionString(), std::chrono::seconds(60))
                               ->Translate(
                                   "select item_id, sum(case when isadded = 1 then qty * rate else "
                                   "-qty end) as q from godownitem1 group by item_id");
  const std::string plan = cluster.Run(
      "SET enable_partitionwise_aggregate = on; EXPLAIN (VERBOSE, FORMAT JSON) " + sums);
  EXPECT_THAT(plan, testing::ContainsRegex("Remote SQL\": \"SELECT .*sum\\(.*GROUP BY"));
  const std::shared_ptr<Snapshot> state =
      OpenDatabase(cluster.ConnectionString(), std::chrono::seconds(60))
          ->TakeSnapshot(std::chrono::seconds(60));
  const std::shared_ptr<Cursor> quantities =
      state->Run("select qty from godownitem1", std::chrono::seconds(60));
  EXPECT_EQ(quantities->Columns()[0].type, adSingle);
}

TEST(ClusterBooks, ShowOneStateOfEachServerWhileAnotherProgramWrites) {
  Cluster cluster;
  books::CreateBooks(cluster.ConnectionString());
  cluster.Spread();
  const std::shared_ptr<Provider> books =
      OpenDatabase(cluster.ConnectionString(), std::chrono::seconds(60));
  const std::shared_ptr<Snapshot> before = books->TakeSnapshot(std::chrono::seconds(60));
  // Movements of many items, so that each server gets some.
  cluster.Run(
      "INSERT INTO \"GodownItem1\" (\"GodownItem_id\", \"Item_id\") SELECT n, n FROM "
      "generate_series(1, 100) n");
  EXPECT_EQ(CountMovements(*before), 0);
  EXPECT_EQ(CountMovements(*books->TakeSnapshot(std::chrono::seconds(60))), 100);
  EXPECT_EQ(CountMovements(*before), 0);
}

TEST(ClusterBooks, ASelectThatIsRefusedLeavesTheStateAndAWorkerThatIsGoneIsAnError) {
  Cluster cluster;
  books::CreateBooks(cluster.ConnectionString());
  cluster.Spread();
  cluster.Run("INSERT INTO \"GodownItem1\" (\"GodownItem_id\", \"Item_id\") VALUES (1, 1)");
  const std::shared_ptr<Provider> books =
      OpenDatabase(cluster.ConnectionString(), std::chrono::seconds(60));
  const std::shared_ptr<Snapshot> state = books->TakeSnapshot(std::chrono::seconds(60));
  const std::shared_ptr<Cursor> refused =
      state->Run("select item_id / 0 as n from godownitem1", std::chrono::seconds(60));
  Chunk chunk(refused->Columns());
  EXPECT_THROW((void)refused->Read(chunk), Error);
  EXPECT_EQ(CountMovements(*state), 1);

  cluster.Worker().Stop();
  EXPECT_THROW((void)books->TakeSnapshot(std::chrono::seconds(60)), Error);
  cluster.Worker().Resume();
  EXPECT_EQ(CountMovements(*books->TakeSnapshot(std::chrono::seconds(60))), 1);
}

}  // namespace
}  // namespace pstolvane1::golden
