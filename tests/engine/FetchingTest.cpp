// Rowsets that are fetched beside the apartment thread from real books.
#include <chrono>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <thread>

#include "session/data/MessageLoop.h"
#include "session/data/Recordset.h"
#include "session/engine/Engines.h"
#include "tests/engine/TestBooks.h"
#include "tests/engine/TwinTables.h"

namespace pstolvane1::sqlite {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

constexpr const char* kSelectA = "SELECT id, v, filler FROM a";
constexpr const char* kSelectB = "SELECT id, v FROM b";
constexpr const char* kEndlessSelect =
    "SELECT Count(*) AS n FROM a AS x, a AS y, b AS z WHERE x.id + y.id = z.id - 100000000";

std::shared_ptr<Connection> Connect(const TestBooks& books) {
  auto connection = NewConnection();
  connection->Open(books.Path());
  return connection;
}

void OpenBeside(Recordset& rowset, const char* select, const std::shared_ptr<Connection>& books) {
  rowset.Open(select, books, adOpenStatic, adLockReadOnly, adAsyncExecuteFetch);
}

void PumpUntil(const std::function<bool()>& done) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
  while (!done() && std::chrono::steady_clock::now() < end) WaitForEvents(milliseconds(20));
  ASSERT_TRUE(done());
}

// The one value of the column v in all rows; -1 when they have several.
int OneValueOf(Recordset& rowset) {
  const ColumnHandle column = rowset.Column("v");
  const int value = rowset.Int32(column);
  for (; !rowset.Eof(); rowset.MoveNext()) {
    if (rowset.Int32(column) != value) return -1;
  }
  return value;
}

class WhileAReportFetches : public testing::TestWithParam<const char*> {};

TEST_P(WhileAReportFetches, AnotherProgramsWritingIsNotSeen) {
  const TestBooks books(TwinTables(GetParam(), 30000));
  WriterProcess writer(books.Path());
  ASSERT_TRUE(writer.Step());
  const auto connection = Connect(books);
  int value = 1;
  for (int report = 0; report < 3; ++report) {
    auto a = Recordset::New();
    auto b = Recordset::New();
    int complete = 0;
    int committed = 0;
    const auto count = [&](const Error* error, int status, Recordset&) {
      EXPECT_EQ(status, adStatusOK) << (error != nullptr ? error->Description() : "");
      ++complete;
    };
    a->FetchComplete = count;
    b->FetchComplete = count;
    {
      const Connection::OneState state(connection);
      OpenBeside(*a, kSelectA, connection);
      bool a_began = false;
      a->FetchProgress = [&](std::int32_t, std::int32_t, int, Recordset&) { a_began = true; };
      PumpUntil([&] { return a_began || complete > 0; });
      committed += writer.Step() ? 1 : 0;  // while a is fetched, before b is
      OpenBeside(*b, kSelectB, connection);
      PumpUntil([&] { return complete == 2; });
    }
    EXPECT_EQ(a->RecordCount(), 30000);
    EXPECT_EQ(OneValueOf(*a), value);
    EXPECT_EQ(OneValueOf(*b), value);
    committed += writer.Step() ? 1 : 0;  // the report has let the books go
    EXPECT_GE(committed, 1);
    value += committed;
  }
}

INSTANTIATE_TEST_SUITE_P(JournalModes, WhileAReportFetches, testing::Values("DELETE", "WAL"));

TEST(Fetching, EndsWhenItsRowsetGoesAtAnyMoment) {
  const TestBooks books(TwinTables("DELETE", 20000));
  const auto connection = Connect(books);
  for (int i = 0; i < 40; ++i) {
    auto rowset = Recordset::New();
    rowset->FetchComplete = [](const Error*, int, Recordset&) {};
    OpenBeside(*rowset, i % 4 == 0 ? kEndlessSelect : kSelectA, connection);
    std::this_thread::sleep_for(std::chrono::microseconds(i * i * 20));
    if (i % 3 == 0) DoEvents();
    rowset.reset();
  }
  // Nothing holds the books any more.
  DoEvents();
  Writer writer(books.Path());
  writer.Run(kStep);
  auto rowset = Recordset::New();
  rowset->Open(kSelectB, connection);
  EXPECT_EQ(OneValueOf(*rowset), 1);
}

TEST(Fetching, EndsWithAnErrorWhenTheConnectionIsCancelledAtAnyMoment) {
  const TestBooks books(TwinTables("DELETE", 20000));
  const auto connection = Connect(books);
  int cancelled = 0;
  for (int i = 0; i < 20; ++i) {
    auto rowset = Recordset::New();
    bool complete = false;
    rowset->FetchComplete = [&](const Error* error, int status, Recordset&) {
      complete = true;
      cancelled += status != adStatusOK && error != nullptr ? 1 : 0;
    };
    OpenBeside(*rowset, i % 2 == 0 ? kEndlessSelect : kSelectA, connection);
    std::this_thread::sleep_for(std::chrono::microseconds(i * i * 40));
    connection->Cancel();
    PumpUntil([&] { return complete; });
  }
  EXPECT_GE(cancelled, 10);
  auto rowset = Recordset::New();
  rowset->Open(kSelectB, connection);
  EXPECT_EQ(rowset->RecordCount(), 20000) << "the connection stays usable";
}

TEST(Fetching, EndsWhenTheConnectionIsClosed) {
  const TestBooks books(TwinTables("DELETE", 20000));
  const auto connection = Connect(books);
  auto rowset = Recordset::New();
  bool complete = false;
  rowset->FetchComplete = [&](const Error* error, int, Recordset&) {
    complete = true;
    EXPECT_NE(error, nullptr);
  };
  OpenBeside(*rowset, kEndlessSelect, connection);
  connection->Close();
  PumpUntil([&] { return complete; });
  EXPECT_EQ(connection->State(), adStateClosed);
}

TEST(Fetching, EndsAtTheCommandTimeout) {
  const TestBooks books(TwinTables("DELETE", 20000));
  const auto connection = Connect(books);
  connection->CommandTimeout(1);
  auto rowset = Recordset::New();
  EXPECT_THAT(ErrorOf([&] { rowset->Open(kEndlessSelect, connection); }),
              AllOf(StartsWith("-2147217900 "), HasSubstr("the time limit of 1 s was reached")));
}

}  // namespace
}  // namespace pstolvane1::sqlite
