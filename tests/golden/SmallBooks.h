// Books of a case, written to a file of their own.
#pragma once

#include <string>
#include <vector>

#include "CaseFile.h"

namespace pstolvane1::golden {

// A file of SQLite books with the reference schema and these rows; it goes with the object.
class SmallBooks {
 public:
  explicit SmallBooks(const std::vector<TextTable>& tables);
  ~SmallBooks();
  SmallBooks(const SmallBooks&) = delete;
  SmallBooks& operator=(const SmallBooks&) = delete;

  [[nodiscard]] const std::string& ConnectionString() const { return path_; }

 private:
  std::string path_;
};

}  // namespace pstolvane1::golden
