// The engines that a connection string can name.
#pragma once

#include <memory>
#include <string>

#include "session/data/Connection.h"

namespace pstolvane1 {

// A connection that opens any engine of the library: "books.db" or "sqlite:///books.db" for SQLite.
[[nodiscard]] std::shared_ptr<Connection> NewConnection();

}  // namespace pstolvane1
