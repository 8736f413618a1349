// What SQLite's result codes mean for somebody who reads the books.
#pragma once

#include <string>
#include <string_view>

struct sqlite3;

namespace pstolvane1::sqlite {

enum class Failure {
  kLocked,        // another program holds the books
  kDamaged,       // the file's structure does not hold together
  kNotADatabase,  // the file is something else, or encrypted
  kUnfinished,    // a writer broke off, and only a writer may put the file right
  kNoWalIndex,    // write-ahead books whose shared index can neither be opened nor made
  kNoAccess,      // the system does not let the file be opened
  kDevice,        // reading or writing failed below the engine
  kNoRoom,        // no space for the engine's temporary files
  kNoMemory,
  kInterrupted,
  kTooLarge,   // a value or a text beyond the engine's limits
  kForbidden,  // refused by the guard
  kMisuse,     // this library's mistake
  kOther,      // the engine's own words say it: an unknown name, a wrong type
};

// Of an extended or primary result code other than SQLITE_OK, SQLITE_ROW and SQLITE_DONE.
[[nodiscard]] Failure Classify(int code) noexcept;

// The sentence's end after "the books FILE ..." or "...: ", without a full stop. Empty for kOther.
[[nodiscard]] std::string_view Meaning(Failure failure) noexcept;

// Meaning and the engine's own words: "the books are damaged (database disk image is malformed)".
[[nodiscard]] std::string Explain(int code, sqlite3* database);

}  // namespace pstolvane1::sqlite
