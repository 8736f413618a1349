// Books of a case on the tests' server.
#pragma once

#include <string>
#include <vector>

#include "CaseFile.h"
#include "tests/server/Server.h"

namespace pstolvane1::golden {

// The rows of one case after the other in the same PostgreSQL books, written in one session: making
// books takes the server many times as long as a case, and a session as long as some.
class CaseRows {
 public:
  // The books are empty.
  explicit CaseRows(const std::string& connection_string) : session_(connection_string) {}

  // The books hold these rows and no others.
  void Hold(const std::vector<TextTable>& tables);

 private:
  ServerSession session_;
  std::vector<TextTable> held_;
};

// PostgreSQL books with the reference schema; they go with the object.
class ServerBooks {
 public:
  ServerBooks();

  // They hold these rows and no others.
  void Hold(const std::vector<TextTable>& tables) { rows_.Hold(tables); }
  [[nodiscard]] const std::string& ConnectionString() const { return scratch_.ConnectionString(); }

 private:
  Scratch scratch_;
  CaseRows rows_;
};

}  // namespace pstolvane1::golden
