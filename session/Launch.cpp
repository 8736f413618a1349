#include "session/Launch.h"

#include <optional>
#include <vector>

#include "session/data/OpenTogether.h"

namespace pstolvane1 {
namespace {

void OpenAll(ReportFrame& frame, std::initializer_list<SourceQuery> queries, int options) {
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

void Prepare(ReportFrame& frame, std::initializer_list<SourceQuery> queries) {
  for (const SourceQuery& query : queries) {
    const RecordsetPtr rowset = frame.Rowset(query.source);
    rowset->ActiveConnection(frame.MainCn);
    rowset->Properties()("Initial Fetch Size").Value(1);
  }
}

}  // namespace

RecordsetPtr Launch(ReportFrame& frame, Boolean blnReport, const LaunchPattern& pattern,
                    std::initializer_list<SourceQuery> queries, RowBuilder builder) {
  const std::shared_ptr<ReportFrame> keep = frame.shared_from_this();
  for (const SourceQuery& query : queries) frame.Replace(query.source);
  if (blnReport.IsTrue()) {
    OpenAll(frame, queries, adOptionUnspecified);
    const RecordsetPtr report = builder(frame);
    return pattern.returns_clone ? report->Clone(adLockUnspecified) : report;
  }
  if (pattern.opens_and_signals) {
    OpenAll(frame, queries, adOptionUnspecified);
    frame.SourceFetchComplete();
    return nullptr;
  }
  if (pattern.prepares) Prepare(frame, queries);
  if (pattern.preloaded_fetches != 0) frame.module.bytFetchesDone = pattern.preloaded_fetches;
  OpenAll(frame, queries, adAsyncExecuteFetch);
  return nullptr;
}

RecordsetPtr OpenPlain(ReportFrame& frame, std::string_view text) {
  const RecordsetPtr rowset = Recordset::New();
  rowset->Open(text, frame.MainCn);
  rowset->ActiveConnection(nullptr);
  return rowset->Clone(adLockUnspecified);
}

}  // namespace pstolvane1
