#include "session/engine/sqlite/Errors.h"

#include <sqlite3.h>

namespace pstolvane1::sqlite {
namespace {

Failure ClassifyPrimary(int code) noexcept {
  switch (code & 0xff) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
    case SQLITE_PROTOCOL:
      return Failure::kLocked;
    case SQLITE_CORRUPT:
      return Failure::kDamaged;
    case SQLITE_NOTADB:
      return Failure::kNotADatabase;
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
      return Failure::kNoAccess;
    case SQLITE_IOERR:
    case SQLITE_NOLFS:
      return Failure::kDevice;
    case SQLITE_FULL:
      return Failure::kNoRoom;
    case SQLITE_NOMEM:
      return Failure::kNoMemory;
    case SQLITE_INTERRUPT:
    case SQLITE_ABORT:
      return Failure::kInterrupted;
    case SQLITE_TOOBIG:
      return Failure::kTooLarge;
    case SQLITE_AUTH:
    case SQLITE_READONLY:
      return Failure::kForbidden;
    case SQLITE_MISUSE:
    case SQLITE_INTERNAL:
    case SQLITE_RANGE:
      return Failure::kMisuse;
    default:
      return Failure::kOther;
  }
}

}  // namespace

Failure Classify(int code) noexcept {
  switch (code) {
    case SQLITE_READONLY_ROLLBACK:
    case SQLITE_READONLY_RECOVERY:
      return Failure::kUnfinished;
    case SQLITE_READONLY_CANTINIT:
    case SQLITE_READONLY_CANTLOCK:
    case SQLITE_READONLY_DIRECTORY:
      return Failure::kNoWalIndex;
    case SQLITE_IOERR_NOMEM:
      return Failure::kNoMemory;
    case SQLITE_IOERR_CORRUPTFS:
      return Failure::kDamaged;
    default:
      return ClassifyPrimary(code);
  }
}

std::string_view Meaning(Failure failure) noexcept {
  switch (failure) {
    case Failure::kLocked:
      return "the books are locked by another program";
    case Failure::kDamaged:
      return "the books are damaged; restore them from a backup";
    case Failure::kNotADatabase:
      return "the file is not an SQLite database, or it is encrypted";
    case Failure::kUnfinished:
      return "a program broke off while it was writing to the books; open them once with that "
             "program, so that they are put right";
    case Failure::kNoWalIndex:
      return "the books are in write-ahead mode, and the files of that mode beside them can be "
             "neither read nor made; let this program write to their folder, or set the books to "
             "another journal mode";
    case Failure::kNoAccess:
      return "the file cannot be opened";
    case Failure::kDevice:
      return "the disk or the network failed";
    case Failure::kNoRoom:
      return "there is no room for temporary files";
    case Failure::kNoMemory:
      return "out of memory";
    case Failure::kInterrupted:
      return "it was interrupted";
    case Failure::kTooLarge:
      return "a text or a value is larger than the engine takes";
    case Failure::kForbidden:
      return "the books are only read, and the statement does something else";
    case Failure::kMisuse:
      return "the engine was used wrongly, which is a mistake of this library";
    case Failure::kOther:
      return "";
  }
  return "";
}

std::string Explain(int code, sqlite3* database) {
  const char* words = database != nullptr ? sqlite3_errmsg(database) : sqlite3_errstr(code);
  const std::string_view meaning = Meaning(Classify(code));
  if (meaning.empty()) return words;
  return std::string(meaning) + " (" + words + ")";
}

}  // namespace pstolvane1::sqlite
