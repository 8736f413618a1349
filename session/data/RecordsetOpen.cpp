// How a rowset comes to the rows of a query.
#include <algorithm>
#include <chrono>
#include <future>
#include <memory>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "session/data/AsyncFetch.h"
#include "session/data/ConnectionAccess.h"
#include "session/data/OpenTogether.h"
#include "session/data/QueryReader.h"
#include "session/data/Recordset.h"
#include "session/data/RecordsetAccess.h"
#include "session/data/ShapeJoiner.h"
#include "session/data/ShapePlan.h"
#include "session/data/ThreadWork.h"

namespace pstolvane1 {
namespace {

void CheckArgument(const char* name, int value, int allowed) {
  if (value == -1 || value == allowed) return;
  throw Error(ErrorNumber::kArgumentOutOfRange, std::string(name) + " of a query is -1 or " +
                                                    std::to_string(allowed) + ", not " +
                                                    std::to_string(value));
}

void CheckClosed(const Recordset& rowset) {
  if (rowset.State() == adStateClosed) return;
  throw Error(ErrorNumber::kArgumentOutOfRange, "the rowset is open already: close it first");
}

// What the rows of a rowset's query are read with.
struct Reading {
  shape::Plan plan;
  std::shared_ptr<BooksState> state;
  std::chrono::milliseconds time_limit;
  std::shared_ptr<FetchStop> stop = std::make_shared<FetchStop>();
};

Reading Prepare(Recordset& rowset, std::string_view source,
                std::shared_ptr<Connection> connection) {
  auto& own = RecordsetAccess::ImplOf(rowset).connection;
  if (connection) own = std::move(connection);
  if (!own) {
    throw Error(ErrorNumber::kNoConnection, "the rowset has no connection to open a query on");
  }
  const std::shared_ptr<Provider> provider = ConnectionAccess::ProviderOf(*own);
  shape::Plan plan =
      shape::MakePlan(source, [&](std::string_view select) { return provider->Describe(select); });
  Reading reading{.plan = std::move(plan),
                  .state = ConnectionAccess::StateToRead(*own),
                  .time_limit = ConnectionAccess::TimeLimit(*own)};
  ConnectionAccess::FetchesOf(*own)->Add(reading.stop, provider);
  // Whoever abandons the report from now on finds the reading; who did so before has marked it.
  WorkInHand::CheckInnermost();
  return reading;
}

std::shared_ptr<RowStore> RowsOf(const Reading& reading) {
  const QueryReader reader(reading.state, reading.time_limit, reading.stop);
  return shape::Join(reading.plan, reader, QueryReader::kSmallChunk);
}

// Ends what is still read when it goes.
class EndOfReading {
 public:
  explicit EndOfReading(const std::vector<Reading>& readings) : readings_(readings) {}
  ~EndOfReading() {
    for (const Reading& reading : readings_) reading.stop->Stop();
  }
  EndOfReading(const EndOfReading&) = delete;
  EndOfReading& operator=(const EndOfReading&) = delete;

 private:
  const std::vector<Reading>& readings_;
};

}  // namespace

void OpenTogether(const std::shared_ptr<Connection>& connection,
                  std::span<const RowsetQuery> queries) {
  if (!connection || !ConnectionAccess::ProviderOf(*connection)->ReadsSideBySide()) {
    for (const RowsetQuery& query : queries) query.rowset->Open(query.source, connection);
    return;
  }
  std::vector<Reading> readings;
  for (const RowsetQuery& query : queries) {
    CheckClosed(*query.rowset);
    readings.push_back(Prepare(*query.rowset, query.source, connection));
  }
  std::vector<std::future<std::shared_ptr<RowStore>>> stores;
  stores.reserve(readings.size());
  for (const Reading& reading : readings) {
    // The first is read by this thread, which asks for it below, while the others are read.
    const auto how =
        stores.empty() ? std::launch::deferred : std::launch::async | std::launch::deferred;
    stores.push_back(std::async(how, [&reading] { return RowsOf(reading); }));
  }
  const EndOfReading end(readings);
  for (std::size_t i = 0; i < stores.size(); ++i) {
    RecordsetAccess::Attach(*queries[i].rowset, stores[i].get());
  }
}

void Recordset::ActiveConnection(std::shared_ptr<Connection> connection) {
  if (impl_->view && connection) {
    throw Error(
        ErrorNumber::kArgumentOutOfRange,
        "an open rowset can be disconnected, but not be given a connection: close it first");
  }
  impl_->connection = std::move(connection);
}

std::shared_ptr<Connection> Recordset::ActiveConnection() const { return impl_->connection; }

int Recordset::State() const {
  if (!impl_->view) return adStateClosed;
  return impl_->fetch ? adStateOpen + adStateFetching : adStateOpen;
}

void Recordset::WaitForRows() {
  impl_->Open();
  const std::shared_ptr<RunningFetch> fetch = impl_->fetch;
  if (!fetch) return;
  if (const std::optional<Error> error = fetch->TakeAll()) throw *error;
}

void Recordset::Open(std::string_view source, std::shared_ptr<Connection> connection,
                     int cursor_type, int lock_type, int options) {
  CheckClosed(*this);
  CheckArgument("the cursor type", cursor_type, adOpenStatic);
  CheckArgument("the lock type", lock_type, adLockReadOnly);
  CheckArgument("options", options, adAsyncExecuteFetch);
  Reading reading = Prepare(*this, source, std::move(connection));
  if (options == adOptionUnspecified) {
    RecordsetAccess::Attach(*this, RowsOf(reading));
    return;
  }
  auto store = std::make_shared<RowStore>(reading.plan.columns, RowStore::Kind::kQuery);
  const std::size_t first_rows =
      std::clamp<std::size_t>(static_cast<std::size_t>(impl_->initial_fetch_size), 1, Chunk::kRows);
  auto fetch = AsyncFetch::Start(shared_from_this(), std::move(reading.plan), reading.state,
                                 reading.time_limit, first_rows, reading.stop);
  RecordsetAccess::Attach(*this, std::move(store));
  impl_->fetch = std::move(fetch);
}

}  // namespace pstolvane1
