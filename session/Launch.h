// How an operation opens its queries and hands its report over.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "session/ReportFrame.h"

namespace pstolvane1 {

// A column that takes the place of another wherever a text names it.
struct ColumnSwap {
  std::string_view from, to;  // in lower case
};

// A query as it was composed, and the source rowset that it is opened on.
struct SourceQuery {
  Source source;
  std::string text;
  // Done once the text is in the dialect, conditions of the host included; none if empty.
  ColumnSwap swap = {};
  // The text is the server's own from the start: it goes out as it stands, without aliases.
  bool in_server_dialect = false;
};
using SourceQueries = std::vector<SourceQuery>;

// Launches the report of that type as its row says: makes it the report in hand, brings the texts
// into the dialect, keeps them in strSQL, strSQL2 and so on, and opens them in their order on one
// state of the books. With blnReport exactly True it builds and returns the report; otherwise it
// returns nullptr, and the dispatcher goes on when the awaited fetches are complete. An error of an
// open goes to the caller. Error 3001, before anything is opened, for another number of queries
// than the row awaits. A type without a row is opened like a report of one query, and nothing is
// delivered.
RecordsetPtr Launch(ReportFrame& frame, std::int32_t report_type, Boolean blnReport,
                    const SourceQueries& queries);
// For an operation of one query that takes its report type from the host: asked for with blnReport
// exactly True it builds its own report, whatever the type; otherwise the type's row decides.
RecordsetPtr Launch(ReportFrame& frame, std::int32_t report_type, Boolean blnReport,
                    const SourceQuery& query, RowBuilder own);

// A query without a report type, a builder or events, in the dialect, disconnected, all defaults.
[[nodiscard]] RecordsetPtr OpenPlain(ReportFrame& frame, std::string_view text);

}  // namespace pstolvane1
