// Books of a case, on one of the engines.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "CaseFile.h"
#include "tests/server/Server.h"

namespace pstolvane1::golden {

enum class Engine { kSqlite, kPostgres };

// Books with the reference schema and these rows, in a file or on the tests' server; they go with
// the object.
class SmallBooks {
 public:
  SmallBooks(Engine engine, const std::vector<TextTable>& tables);
  ~SmallBooks();
  SmallBooks(const SmallBooks&) = delete;
  SmallBooks& operator=(const SmallBooks&) = delete;

  [[nodiscard]] const std::string& ConnectionString() const {
    return scratch_ ? scratch_->ConnectionString() : path_;
  }

 private:
  std::string path_;
  std::optional<Scratch> scratch_;
};

}  // namespace pstolvane1::golden
