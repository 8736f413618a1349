// The column types of a rowset, and the constants that its operations take.
#pragma once

#include <cstdint>

#include "session/data/NeedsCpp20.h"

namespace pstolvane1 {

enum DataType : std::int16_t {
  adEmpty = 0,
  adInteger = 3,    // 32-bit whole number
  adSingle = 4,     // 32-bit float
  adDouble = 5,     // 64-bit float
  adCurrency = 6,   // Currency
  adDate = 7,       // Date
  adBSTR = 8,       // text of any length
  adBoolean = 11,   // 16-bit, True = -1
  adBigInt = 20,    // 64-bit whole number
  adChapter = 136,  // a child rowset
  adVarChar = 200,  // text, up to the defined size in characters
};

enum : int {
  adFldDefault = -1,     // no attributes asked for
  adFldIsNullable = 32,  // the column takes Null
};

enum : int { adOpenUnspecified = -1, adOpenStatic = 3 };
enum : int { adLockUnspecified = -1, adLockReadOnly = 1 };

// Options of Open: -1 is synchronous.
enum : int {
  adOptionUnspecified = -1,
  adAsyncConnect = 16,  // a connection opens in the background
  adAsyncExecute = 16,
  adAsyncFetch = 32,
  adAsyncExecuteFetch = 48,  // a rowset opens in the background
};

enum : int { adStateClosed = 0, adStateOpen = 1, adStateConnecting = 2, adStateFetching = 8 };
enum : int { adStatusOK = 1, adStatusErrorsOccurred = 2 };

}  // namespace pstolvane1
