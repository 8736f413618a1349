// What rowsets need of a connection.
#pragma once

#include <chrono>
#include <memory>

#include "session/data/BooksState.h"
#include "session/data/Connection.h"
#include "session/data/FetchStop.h"

namespace pstolvane1 {

// On the connection's thread.
struct ConnectionAccess {
  // Error 3709 unless the connection is open.
  [[nodiscard]] static const std::shared_ptr<Provider>& ProviderOf(const Connection& connection);
  // The state to read now, that of the innermost OneState or one of its own. Error 3709.
  [[nodiscard]] static std::shared_ptr<BooksState> StateToRead(Connection& connection);
  [[nodiscard]] static std::chrono::milliseconds TimeLimit(const Connection& connection);
  // From now on Cancel and Close of the connection stop the fetch, as long as it lives.
  static void Register(Connection& connection, const std::shared_ptr<FetchStop>& fetch);
};

}  // namespace pstolvane1
