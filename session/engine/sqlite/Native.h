// SQLite's own handles, closed when they go out of scope.
#pragma once

#include <memory>

struct sqlite3;
struct sqlite3_stmt;

namespace pstolvane1::sqlite {

struct CloseDatabase {
  void operator()(sqlite3* database) const noexcept;
};
struct FinalizeStatement {
  void operator()(sqlite3_stmt* statement) const noexcept;
};
using NativeDatabase = std::unique_ptr<sqlite3, CloseDatabase>;
using NativeStatement = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

}  // namespace pstolvane1::sqlite
