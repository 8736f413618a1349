// The events of a session.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

#include "session/data/Recordset.h"

namespace pstolvane1 {

// What a session tells its host, always on the session's own thread: inside a call of one of its
// members, or while the thread pumps its messages (DoEvents). A handler may call the session,
// assign handlers and destroy the session. One that is not assigned is not called. Texts are valid
// during the call.
struct clsStolvane1Events {
  // The connection is open: ErrString is "". It could not be opened: the reason.
  std::function<void(std::string_view ErrString)> OnConnect;
  // An asynchronous report is finished. Rss is the host's own. anyCount is the number of lines of a
  // report that counts its lines, and 0 or a constant for the others. What the handler throws goes
  // to whoever pumps.
  std::function<void(RecordsetPtr Rss, std::int32_t anyCount)> FetchComplete;
  // How far a report is: up to 20 with "FetchingData" while rows are read, up to 60 with
  // "Manipulating" and "manipulating" while its lines are written; it never reaches 100. As long as
  // a fetch has no rows yet, the percentage so far is told about once a second. A report that is
  // asked for synchronously stays at 20. What the handler throws is passed over.
  std::function<void(std::uint8_t bytFetchPercent, std::string_view strmessage)> FetchProgress;
};

}  // namespace pstolvane1
