// The inside of a session: what all report families work on.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "session/Abandoning.h"
#include "session/Progress.h"
#include "session/ReportRow.h"
#include "session/clsStolvane1Events.h"
#include "session/data/Connection.h"
#include "session/data/Recordset.h"
#include "session/modStolvane1.h"
#include "session/rowset/Locale.h"
#include "session/typAliases.h"

namespace pstolvane1 {

// The five source rowsets of a session. A report replaces those that it uses.
enum class Source : std::uint8_t { rsItems, RsCategory, rsReport, Rs1, Rs2 };
inline constexpr std::size_t kSources = 5;

// Belongs to its session's thread. The session holds it, and so does everything that runs on its
// behalf, so that a host may destroy the session inside a handler: what runs then ends early and
// tells nobody.
class ReportFrame : public std::enable_shared_from_this<ReportFrame> {
 public:
  // The rows stay with the caller.
  ReportFrame(std::span<const ReportRow> reports, ConnectionMaker make_connection,
              clsStolvane1Events& events);
  ReportFrame(const ReportFrame&) = delete;
  ReportFrame& operator=(const ReportFrame&) = delete;

  std::shared_ptr<Connection> MainCn;
  std::int32_t lngReportType = 0;  // of the report in hand
  Boolean blnCancelFetching;
  bool blnUserPressedCancel = false;  // nothing reads it
  bool cut_short = false;  // the report that was written last was cancelled before its last line
  // While fetching the sum of the first MaxProgress of each source rowset; while lines are written
  // the number of source rows.
  std::int32_t lngFetchTotal = 0;
  std::int32_t lngRs1Fetches = 0;  // Rs1's first progress events; nothing reads it
  Progress progress;
  typAliases Aliases;
  modStolvane1& module;  // the thread's variables

  void SetConnection(std::string_view saved_connection, std::string_view connection_string,
                     Boolean asynchronous, Date books_from, Date books_to,
                     std::string_view currency_prefix, std::string_view currency_suffix);
  void SetLocale(std::string_view name);
  [[nodiscard]] const Locale& Texts();  // the session's locale
  // The query text in the form that is opened, with the session's aliases.
  [[nodiscard]] std::string Normalise(std::string_view query) const;
  // What the reading of the report's queries met. A division by their scale says so.
  [[nodiscard]] Error Told(const Error& error) const;

  // A report is asked for: what was abandoned before it is dropped.
  void BeginReport();
  // Drops the report in hand, from any thread; nothing more comes of it. What runs for it ends.
  void Abandon();

  // A new rowset in the source's place, with its events connected. What the old one still fetches
  // is dropped, and its events no longer count.
  const RecordsetPtr& Replace(Source source);
  // A rowset of the host's in the place of rsItems; it is read, not fetched.
  void UseHostItems(RecordsetPtr items);
  // A source rowset still fetches, or its FetchComplete waits to be delivered.
  [[nodiscard]] bool Fetching() const;
  // For row builders, who keep what they get: the source's rowset, whole; waits for rows that still
  // come. The error of its fetch if that failed, and error 91 when there is none. A builder that
  // moves takes a clone: while it yields, another report may be built from the same rowset.
  [[nodiscard]] RecordsetPtr Rowset(Source source) const;
  [[nodiscard]] bool Seen(Source source) const;  // it has reported progress

  void SourceFetchProgress(Source source, std::int32_t rows, std::int32_t max_rows);
  // It has no rows yet: the host is told the percentage again, which stays as it is.
  void SourceFetchWaits();
  // Counts the fetch as done, failed or not, and dispatches.
  void SourceFetchComplete();
  void DispatchFetchComplete();
  // The row of a report type; nullptr for a type without one.
  [[nodiscard]] const ReportRow* RowOf(std::int32_t report_type) const {
    return FindRow(reports_, report_type);
  }
  // Writes the report in hand and gives what the host gets of it: this is where reports are cloned.
  [[nodiscard]] RecordsetPtr Build(const ReportRow& row);
  void BeginManipulating();
  // Errors of the host's handler are passed over.
  void RaiseStepProgress(std::int32_t lngProgress, std::string_view strMessage,
                         std::int32_t lngCount, std::int32_t lngRange) noexcept;

  // Ends the pass of one source row: yields to the message loop, raises "manipulating", and says
  // whether the loop goes on. False once the report is cancelled or its session is gone; error
  // -2147217900 once it is abandoned.
  [[nodiscard]] bool EndPass(std::int32_t lngRange = 60);

  // Errors are passed over; no event follows.
  void Class_Terminate() noexcept;

 private:
  struct Slot {
    RecordsetPtr rowset;
    bool seen = false;
    std::optional<Error> failure;  // of its fetch
    std::uint64_t mark = 0;        // of the report that it is fetched for
  };
  [[nodiscard]] Slot& SlotOf(Source source) { return slots_[static_cast<std::size_t>(source)]; }
  [[nodiscard]] const Slot& SlotOf(Source source) const {
    return slots_[static_cast<std::size_t>(source)];
  }
  [[nodiscard]] bool Fetches(const Slot& slot) const;
  void TellProgress(std::uint8_t percent, std::string_view message) const;
  void DropAbandoned();
  // Nothing once the report of that mark is abandoned.
  [[nodiscard]] RecordsetPtr BuildUnlessAbandoned(const ReportRow& row, std::uint64_t mark);
  void ConnectEvents(Source source, Recordset& rowset);
  void Connect(const std::string& connection_string, Boolean asynchronous);
  void MainCn_ConnectComplete(const Error* pError, int adStatus);

  std::shared_ptr<modStolvane1> keep_module_;
  std::span<const ReportRow> reports_;
  ConnectionMaker make_connection_;
  clsStolvane1Events* events_;  // nullptr once the session is gone
  std::shared_ptr<const Locale> locale_;
  std::array<Slot, kSources> slots_;
  Abandoning abandoning_;
  std::uint64_t mark_ = 0;  // of the report in hand
};

}  // namespace pstolvane1
