// Books of a case on the tests' server.
#pragma once

#include <string>
#include <vector>

#include "CaseFile.h"
#include "tests/server/Server.h"

namespace pstolvane1::golden {

// The rows of one case after the other in the same PostgreSQL books, because making books takes the
// server many times as long as a case.
class CaseRows {
 public:
  // Statements that take away what the case before put in, and put these rows in.
  [[nodiscard]] std::string Replace(const std::vector<TextTable>& tables);

 private:
  std::string take_away_;
};

// PostgreSQL books with the reference schema; they go with the object.
class ServerBooks {
 public:
  ServerBooks();

  // They hold these rows and no others.
  void Hold(const std::vector<TextTable>& tables) { scratch_.Run(rows_.Replace(tables)); }
  [[nodiscard]] const std::string& ConnectionString() const { return scratch_.ConnectionString(); }

 private:
  Scratch scratch_;
  CaseRows rows_;
};

}  // namespace pstolvane1::golden
