// Books of a case on the tests' server.
#pragma once

#include <string>
#include <vector>

#include "CaseFile.h"
#include "tests/server/Server.h"

namespace pstolvane1::golden {

// Statements that add the rows to PostgreSQL books.
[[nodiscard]] std::string RowsOf(const std::vector<TextTable>& tables);

// PostgreSQL books with the reference schema and these rows; they go with the object.
class ServerBooks {
 public:
  explicit ServerBooks(const std::vector<TextTable>& tables);

  [[nodiscard]] const std::string& ConnectionString() const { return scratch_.ConnectionString(); }

 private:
  Scratch scratch_;
};

}  // namespace pstolvane1::golden
