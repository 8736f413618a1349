#include "analysis/Colorwise.h"

#include "session/Launch.h"

namespace pstolvane1 {

ColorOpening ReadColorOpening(ReportFrame& frame) {
  const RecordsetPtr source = frame.Rowset(Source::Rs1);
  const ColumnHandle unit = source->Column("UomName");
  const ColumnHandle opening = source->Column("Opening");
  for (const Recordset::Row row : source->Rows()) {
    return {.unit = std::string(row.Text(unit)), .quantity = row.Single(opening)};
  }
  throw Error(ErrorNumber::kNoCurrentRecord, "the item has no batch of the colour");
}

RecordsetPtr Colorwise_Initial(ReportFrame& frame, const ColorwiseArguments& arguments,
                               Boolean blnReport) {
  frame.module.Keep(arguments);
  return Launch(frame, rtColorwise_Initial, blnReport,
                {{Source::rsReport, ComposeColors(arguments, frame.module.filter)}});
}

RecordsetPtr Colorwise_Monthly(ReportFrame& frame, const ColorMonthsArguments& arguments,
                               Boolean blnReport) {
  frame.module.Keep(arguments);
  return Launch(frame, rtColorwise_Monthly, blnReport,
                {{Source::Rs1, ComposeColorOpening(arguments, frame.module.filter)},
                 {Source::Rs2, ComposeColorMonths(arguments, frame.module.filter)}});
}

RecordsetPtr Colorwise_Daily(ReportFrame& frame, const ColorDaysArguments& arguments,
                             Boolean blnReport) {
  frame.module.Keep(arguments);
  const ColorMonthsArguments color{.bytYearno = arguments.bytYearno,
                                   .dtFromDate = arguments.dtFromDate,
                                   .dtToDate = arguments.dtToDate,
                                   .lngItem_id = arguments.lngItem_id,
                                   .lngColor_Id = arguments.lngColor_Id};
  return Launch(frame, rtColorwise_Daily, blnReport,
                {{Source::Rs1, ComposeColorOpening(color, frame.module.filter)},
                 {Source::Rs2, ComposeColorDays(color, frame.module.filter)}});
}

}  // namespace pstolvane1
