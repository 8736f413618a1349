#include "analysis/MovementAnalysis.h"

#include "session/Launch.h"

namespace pstolvane1 {

RecordsetPtr MovementAnalysis(ReportFrame& frame, MovementArguments arguments, ReportType& reptype,
                              Boolean blnReport, const RecordsetPtr& rsItems) {
  const MovementGrouping* const grouping = FindMovementGrouping(arguments.side, reptype);
  if (grouping) reptype = StoredType(arguments.side, *grouping);
  const bool related = grouping && reptype == rtMovement_SalesReturns_ItemRelationAnalysis;
  arguments.reptype = reptype;
  arguments.item_lines = arguments.blnDetailed;
  arguments.blnDetailed = arguments.blnDetailed || arguments.IsOne() || related;
  arguments.item_text = frame.Aliases.taItem;
  frame.module.Keep(arguments);

  if (!grouping) {
    frame.lngReportType = reptype;
    return OpenPlain(frame, ComposeMovements(arguments, frame.module.filter));
  }
  SourceQueries queries = {{Source::rsReport, ComposeMovements(arguments, frame.module.filter)}};
  if (related) {
    if (!rsItems) {
      throw Error(ErrorNumber::kObjectNotSet, "the analysis of related items needs rsItems");
    }
    frame.UseHostItems(rsItems);
    queries.push_back({Source::Rs1, std::string(kItemRelations)});
  }
  return Launch(frame, reptype, blnReport, queries);
}

}  // namespace pstolvane1
