// Places for books on the throw-away server.
#pragma once

#include <string>

struct pg_conn;

namespace pstolvane1 {

// The connection string of the server's own database, of a user who may do all. std::runtime_error,
// which fails the test, when there is no server.
[[nodiscard]] std::string ServerConnection();

// A session for setting the scene. Errors are std::runtime_error with the server's words.
class ServerSession {
 public:
  explicit ServerSession(const std::string& connection_string);
  ~ServerSession();
  ServerSession(const ServerSession&) = delete;
  ServerSession& operator=(const ServerSession&) = delete;

  // The first cell of the last result, or an empty text.
  std::string Run(const std::string& statements);

 private:
  pg_conn* connection_;
};

// A schema of its own for one test, gone with the object.
class Scratch {
 public:
  explicit Scratch(const std::string& statements = {});
  ~Scratch();
  Scratch(const Scratch&) = delete;
  Scratch& operator=(const Scratch&) = delete;

  // Names what stands in the schema; nothing else is seen through it.
  [[nodiscard]] const std::string& ConnectionString() const { return connection_string_; }
  std::string Run(const std::string& statements);

 private:
  std::string name_;
  std::string connection_string_;
};

}  // namespace pstolvane1
