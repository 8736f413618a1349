// How a rowset comes to the rows of a query.
#include <algorithm>
#include <memory>
#include <optional>
#include <utility>

#include "session/data/AsyncFetch.h"
#include "session/data/ConnectionAccess.h"
#include "session/data/QueryReader.h"
#include "session/data/Recordset.h"
#include "session/data/RecordsetAccess.h"
#include "session/data/ShapeJoiner.h"
#include "session/data/ShapePlan.h"

namespace pstolvane1 {
namespace {

void CheckArgument(const char* name, int value, int allowed) {
  if (value == -1 || value == allowed) return;
  throw Error(ErrorNumber::kArgumentOutOfRange, std::string(name) + " of a query is -1 or " +
                                                    std::to_string(allowed) + ", not " +
                                                    std::to_string(value));
}

}  // namespace

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
  if (impl_->view) {
    throw Error(ErrorNumber::kArgumentOutOfRange, "the rowset is open already: close it first");
  }
  CheckArgument("the cursor type", cursor_type, adOpenStatic);
  CheckArgument("the lock type", lock_type, adLockReadOnly);
  CheckArgument("options", options, adAsyncExecuteFetch);
  if (connection) impl_->connection = std::move(connection);
  if (!impl_->connection) {
    throw Error(ErrorNumber::kNoConnection, "the rowset has no connection to open a query on");
  }
  Connection& books = *impl_->connection;
  const std::shared_ptr<Provider> provider = ConnectionAccess::ProviderOf(books);
  shape::Plan plan =
      shape::MakePlan(source, [&](std::string_view select) { return provider->Describe(select); });
  const std::shared_ptr<BooksState> state = ConnectionAccess::StateToRead(books);
  const auto stop = std::make_shared<FetchStop>();

  if (options == adOptionUnspecified) {
    QueryReader reader(state, ConnectionAccess::TimeLimit(books), stop);
    RecordsetAccess::Attach(*this, shape::Join(plan, reader, QueryReader::kSmallChunk));
    return;
  }
  auto store = std::make_shared<RowStore>(plan.columns, RowStore::Kind::kQuery);
  const std::size_t first_rows =
      std::clamp<std::size_t>(static_cast<std::size_t>(impl_->initial_fetch_size), 1, Chunk::kRows);
  auto fetch = AsyncFetch::Start(shared_from_this(), std::move(plan), state,
                                 ConnectionAccess::TimeLimit(books), first_rows, stop);
  ConnectionAccess::Register(books, stop);
  RecordsetAccess::Attach(*this, std::move(store));
  impl_->fetch = std::move(fetch);
}

}  // namespace pstolvane1
