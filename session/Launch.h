// How an operation opens its queries and hands its report over: one road, and what differs on it.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string_view>

#include "session/ReportFrame.h"

namespace pstolvane1 {

// A query's normalised text and the source rowset that it is opened on.
struct SourceQuery {
  Source source;
  std::string_view text;
};

struct LaunchPattern {
  // Each source rowset gets its connection and its "Initial Fetch Size" before the first is opened
  // in the background.
  bool prepares = true;
  // The open is synchronous in both modes; the asynchronous mode then signals its completion
  // itself.
  bool opens_and_signals = false;
  // Fetches counted as done before an asynchronous open.
  std::uint8_t preloaded_fetches = 0;
  // A synchronous call returns a clone of what the builder made.
  bool returns_clone = true;
};

inline constexpr LaunchPattern kFetch{};
inline constexpr LaunchPattern kOpenAndSignal{.opens_and_signals = true};
inline constexpr LaunchPattern kPreloadedCount{.preloaded_fetches = 1};
inline constexpr LaunchPattern kFetchAsBuilt{.prepares = false, .returns_clone = false};

// Opens the queries in their order, all on one state of the books. With blnReport exactly True it
// runs the builder and returns the report; otherwise it returns nullptr, and the dispatcher goes on
// when the fetches of lngReportType are complete. An error of an open goes to the caller.
RecordsetPtr Launch(ReportFrame& frame, Boolean blnReport, const LaunchPattern& pattern,
                    std::initializer_list<SourceQuery> queries, RowBuilder builder);

// A query without a report type, a builder or events: disconnected, all defaults.
[[nodiscard]] RecordsetPtr OpenPlain(ReportFrame& frame, std::string_view text);

}  // namespace pstolvane1
