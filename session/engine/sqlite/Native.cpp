#include "session/engine/sqlite/Native.h"

#include <sqlite3.h>

namespace pstolvane1::sqlite {

void CloseDatabase::operator()(sqlite3* database) const noexcept { sqlite3_close_v2(database); }

void FinalizeStatement::operator()(sqlite3_stmt* statement) const noexcept {
  sqlite3_finalize(statement);
}

}  // namespace pstolvane1::sqlite
