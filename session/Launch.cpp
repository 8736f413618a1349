#include "session/Launch.h"

#include <fmt/format.h>
#include <optional>

#include "session/QueryText.h"
#include "session/data/OpenTogether.h"
#include "session/data/OutOfMemory.h"
#include "session/data/ThreadWork.h"

namespace pstolvane1 {
namespace {

void OpenAllNow(ReportFrame& frame, const SourceQueries& queries, int options) {
  std::optional<Connection::OneState> one_state;
  if (frame.MainCn) one_state.emplace(frame.MainCn);
  if (options == adOptionUnspecified) {
    std::vector<RowsetQuery> rowsets;
    for (const SourceQuery& query : queries) {
      rowsets.push_back({frame.Rowset(query.source), query.text});
    }
    OpenTogether(frame.MainCn, rowsets);
    return;
  }
  for (const SourceQuery& query : queries) {
    const RecordsetPtr rowset = frame.Rowset(query.source);
    rowset->Open(query.text, frame.MainCn, adOpenStatic, adLockReadOnly, options);
  }
}

void OpenAll(ReportFrame& frame, const SourceQueries& queries, int options) {
  try {
    TellingWhatRanOut("reading the rows of the report",
                      [&] { OpenAllNow(frame, queries, options); });
  } catch (const Error& error) {
    throw frame.Told(error);
  }
}

void Prepare(ReportFrame& frame, const SourceQueries& queries) {
  for (const SourceQuery& query : queries) {
    const RecordsetPtr rowset = frame.Rowset(query.source);
    rowset->ActiveConnection(frame.MainCn);
    rowset->Properties()("Initial Fetch Size").Value(1);
  }
}

// The queries in the dialect; the module keeps their texts.
SourceQueries InDialect(ReportFrame& frame, const SourceQueries& queries) {
  const auto texts = frame.module.QueryTexts();
  for (std::string* const text : texts) text->clear();
  SourceQueries brought = queries;
  for (std::size_t i = 0; i < brought.size(); ++i) {
    SourceQuery& query = brought[i];
    if (!query.in_server_dialect) query.text = frame.Normalise(query.text);
    if (!query.swap.from.empty()) {
      query.text = ReplaceAll(query.text, query.swap.from, query.swap.to);
    }
    RefuseComments(query.text);
    *texts.at(i) = query.text;
  }
  return brought;
}

void CheckQueries(const ReportRow& row, std::int32_t report_type, const SourceQueries& queries) {
  if (queries.size() == row.Queries()) return;
  throw Error(ErrorNumber::kArgumentOutOfRange,
              fmt::format("{} is launched with {} queries, but its row awaits {}",
                          ReportTypeText(report_type), queries.size(), row.Queries()));
}

// Does the work of a report that is asked for now. Once it is abandoned, what the work throws says
// no more than that.
template <typename Report>
RecordsetPtr InHand(ReportFrame& frame, Report&& report) {
  const WorkInHand in_hand(WorkInHand::Kind::kReport);
  frame.BeginReport();
  try {
    RecordsetPtr rowset = report();
    if (rowset) in_hand.Check();
    return rowset;
  } catch (const Error&) {
    in_hand.Check();
    throw;
  }
}

RecordsetPtr OpenAndBuild(ReportFrame& frame, const ReportRow& row, Boolean blnReport,
                          const SourceQueries& texts) {
  for (const SourceQuery& query : texts) frame.Replace(query.source);
  if (blnReport.IsTrue()) {
    OpenAll(frame, texts, adOptionUnspecified);
    return frame.Build(row);
  }
  if (row.opening == Opening::kOpenAndSignal) {
    OpenAll(frame, texts, adOptionUnspecified);
    frame.SourceFetchComplete();
    return nullptr;
  }
  if (row.opening == Opening::kFetch) Prepare(frame, texts);
  if (row.preloaded_fetches != 0) frame.module.bytFetchesDone = row.preloaded_fetches;
  OpenAll(frame, texts, adAsyncExecuteFetch);
  return nullptr;
}

// A type that no family has a row for.
constexpr ReportRow kNoReport = {
    .first = {}, .last = {}, .awaits = 1, .delivery = Delivery::kNever};

}  // namespace

RecordsetPtr Launch(ReportFrame& frame, std::int32_t report_type, Boolean blnReport,
                    const SourceQueries& queries) {
  const std::shared_ptr<ReportFrame> keep = frame.shared_from_this();
  const ReportRow* const known = frame.RowOf(report_type);
  const ReportRow& row = known ? *known : kNoReport;
  CheckQueries(row, report_type, queries);
  frame.lngReportType = report_type;
  const SourceQueries texts = InDialect(frame, queries);
  return InHand(frame, [&] { return OpenAndBuild(frame, row, blnReport, texts); });
}

RecordsetPtr Launch(ReportFrame& frame, std::int32_t report_type, Boolean blnReport,
                    const SourceQuery& query, RowBuilder own) {
  if (!blnReport.IsTrue()) return Launch(frame, report_type, blnReport, SourceQueries{query});
  const std::shared_ptr<ReportFrame> keep = frame.shared_from_this();
  frame.lngReportType = report_type;
  const SourceQueries texts = InDialect(frame, {query});
  return InHand(frame, [&] {
    frame.Replace(query.source);
    OpenAll(frame, texts, adOptionUnspecified);
    return own(frame)->Clone(adLockUnspecified);
  });
}

RecordsetPtr OpenPlain(ReportFrame& frame, std::string_view text) {
  frame.module.strSQL = frame.Normalise(text);
  RefuseComments(frame.module.strSQL);
  return InHand(frame, [&] {
    const RecordsetPtr rowset = Recordset::New();
    rowset->Open(frame.module.strSQL, frame.MainCn);
    rowset->ActiveConnection(nullptr);
    return rowset->Clone(adLockUnspecified);
  });
}

}  // namespace pstolvane1
