// The engines that a connection string can name.
#pragma once

#include <chrono>
#include <memory>
#include <string>

#include "session/data/Connection.h"
#include "session/data/Provider.h"

namespace pstolvane1 {

// A connection that opens any engine of the library: "books.db" or "sqlite:///books.db" for SQLite.
// session/engine/ConnectionString.h has all forms.
[[nodiscard]] std::shared_ptr<Connection> NewConnection();

// The same for books alone: a database that holds none of the books' chief tables is error 501,
// with a sentence that says so. A session's connection.
[[nodiscard]] std::shared_ptr<Connection> NewBooksConnection();

// How messages call the database that a connection string names: without what the string may hold
// of a password. Error 501 for a wrong connection string.
[[nodiscard]] std::string NameOfDatabase(const std::string& connection_string);

// Opens the database that a connection string names; what NewConnection's connections call. Error
// 501 for a wrong connection string, an engine that this build does not have, and a database that
// cannot be opened.
[[nodiscard]] std::shared_ptr<Provider> OpenDatabase(const std::string& connection_string,
                                                     std::chrono::milliseconds time_limit);

}  // namespace pstolvane1
