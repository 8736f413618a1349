#include <gtest/gtest.h>
#include <sqlite3.h>

#include "session/engine/sqlite/Errors.h"

namespace pstolvane1::sqlite {
namespace {

TEST(SqliteErrors, EveryResultCodeHasItsMeaning) {
  struct Case {
    int code;
    Failure failure;
  };
  for (const Case& each : {
           Case{SQLITE_BUSY, Failure::kLocked},
           Case{SQLITE_BUSY_RECOVERY, Failure::kLocked},
           Case{SQLITE_BUSY_SNAPSHOT, Failure::kLocked},
           Case{SQLITE_BUSY_TIMEOUT, Failure::kLocked},
           Case{SQLITE_LOCKED, Failure::kLocked},
           Case{SQLITE_PROTOCOL, Failure::kLocked},
           Case{SQLITE_CORRUPT, Failure::kDamaged},
           Case{SQLITE_CORRUPT_INDEX, Failure::kDamaged},
           Case{SQLITE_IOERR_CORRUPTFS, Failure::kDamaged},
           Case{SQLITE_NOTADB, Failure::kNotADatabase},
           Case{SQLITE_READONLY_ROLLBACK, Failure::kUnfinished},
           Case{SQLITE_READONLY_RECOVERY, Failure::kUnfinished},
           Case{SQLITE_READONLY_CANTINIT, Failure::kNoWalIndex},
           Case{SQLITE_READONLY_CANTLOCK, Failure::kNoWalIndex},
           Case{SQLITE_READONLY_DIRECTORY, Failure::kNoWalIndex},
           Case{SQLITE_CANTOPEN, Failure::kNoAccess},
           Case{SQLITE_CANTOPEN_ISDIR, Failure::kNoAccess},
           Case{SQLITE_PERM, Failure::kNoAccess},
           Case{SQLITE_IOERR, Failure::kDevice},
           Case{SQLITE_IOERR_READ, Failure::kDevice},
           Case{SQLITE_IOERR_SHORT_READ, Failure::kDevice},
           Case{SQLITE_IOERR_LOCK, Failure::kDevice},
           Case{SQLITE_FULL, Failure::kNoRoom},
           Case{SQLITE_NOMEM, Failure::kNoMemory},
           Case{SQLITE_IOERR_NOMEM, Failure::kNoMemory},
           Case{SQLITE_INTERRUPT, Failure::kInterrupted},
           Case{SQLITE_ABORT, Failure::kInterrupted},
           Case{SQLITE_TOOBIG, Failure::kTooLarge},
           Case{SQLITE_AUTH, Failure::kForbidden},
           Case{SQLITE_READONLY, Failure::kForbidden},
           Case{SQLITE_MISUSE, Failure::kMisuse},
           Case{SQLITE_INTERNAL, Failure::kMisuse},
           Case{SQLITE_RANGE, Failure::kMisuse},
           Case{SQLITE_ERROR, Failure::kOther},
           Case{SQLITE_SCHEMA, Failure::kOther},
           Case{SQLITE_MISMATCH, Failure::kOther},
           Case{SQLITE_CONSTRAINT, Failure::kOther},
       }) {
    EXPECT_EQ(Classify(each.code), each.failure) << sqlite3_errstr(each.code) << " " << each.code;
  }
}

TEST(SqliteErrors, AMeaningStandsBeforeTheEnginesWords) {
  EXPECT_EQ(Explain(SQLITE_CORRUPT, nullptr),
            "the books are damaged; restore them from a backup (database disk image is malformed)");
  EXPECT_EQ(Explain(SQLITE_ERROR, nullptr), "SQL logic error");
}

TEST(SqliteErrors, OnlyTheEnginesOwnWordsStandWithoutAMeaning) {
  for (int failure = 0; failure < static_cast<int>(Failure::kOther); ++failure) {
    EXPECT_NE(Meaning(static_cast<Failure>(failure)), "") << failure;
  }
  EXPECT_EQ(Meaning(Failure::kOther), "");
}

}  // namespace
}  // namespace pstolvane1::sqlite
