// What launching and dispatching know of each report type. Every family hands over a table of these
// rows.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "session/ReportType.h"
#include "session/data/Recordset.h"

namespace pstolvane1 {

class ReportFrame;

// Makes a report's rowset from the source rowsets of the frame.
using RowBuilder = RecordsetPtr (*)(ReportFrame&);

enum class Delivery {
  kClone,    // the host gets a clone of what the builder made
  kAsBuilt,  // the host gets it as it is
  kNothing,  // the fetches are counted, no builder runs and nothing is delivered
  kNever,    // the dispatcher passes over it; a synchronous call returns a clone all the same
};

// How a report's queries are opened.
enum class Opening {
  // In the background, unless the report is asked for synchronously. Each source rowset gets its
  // connection and its "Initial Fetch Size" before the first is opened.
  kFetch,
  kFetchUnprepared,  // the same without that preparation
  // The open blocks in both modes; asked for in the background it signals its own completion.
  kOpenAndSignal,
};

inline constexpr std::int32_t kLinesCounted = -1;

// All that is known of a report. One row stands for the report types from first to last, which
// differ in their number only.
struct ReportRow {
  ReportType first;
  ReportType last;
  std::uint8_t awaits;           // fetches to be complete; 0 goes on at once
  RowBuilder builder = nullptr;  // nullptr for a type that nothing asks for: error 91
  std::int32_t any_count = 0;    // kLinesCounted: the value of lngRecordNo
  bool resets_record_no = false;
  Delivery delivery = Delivery::kClone;
  Opening opening = Opening::kFetch;
  // Fetches counted as done before the queries are opened in the background.
  std::uint8_t preloaded_fetches = 0;
  // Queries beyond those that are awaited; only where the open blocks.
  std::uint8_t unawaited_queries = 0;

  // How many queries it is launched with. A report that awaits none still has one.
  [[nodiscard]] constexpr std::size_t Queries() const {
    const std::size_t awaited = awaits > preloaded_fetches ? awaits - preloaded_fetches : 1;
    return awaited + unawaited_queries;
  }
};

// A row for one report type.
[[nodiscard]] constexpr ReportRow Row(ReportType type, std::uint8_t awaits,
                                      RowBuilder builder = nullptr, std::int32_t any_count = 0) {
  return {
      .first = type, .last = type, .awaits = awaits, .builder = builder, .any_count = any_count};
}
// A row for the types from first to last.
[[nodiscard]] constexpr ReportRow Row(ReportType first, ReportType last, std::uint8_t awaits,
                                      RowBuilder builder = nullptr, std::int32_t any_count = 0) {
  return {
      .first = first, .last = last, .awaits = awaits, .builder = builder, .any_count = any_count};
}

// nullptr for a type without a row: it is accepted, and nothing is delivered.
[[nodiscard]] const ReportRow* FindRow(std::span<const ReportRow> rows, std::int32_t report_type);

// "rtDoc_Initial", or the number of a value that has no name.
[[nodiscard]] std::string ReportTypeText(std::int32_t report_type);

}  // namespace pstolvane1
