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
  // What is read on the connection; stays the same for as long as the connection lives.
  [[nodiscard]] static const std::shared_ptr<FetchStops>& FetchesOf(const Connection& connection);
};

}  // namespace pstolvane1
