#include "session/RowLoop.h"

#include <fmt/format.h>

namespace pstolvane1 {

CellStyle StyleOf(ReportFrame& frame) {
  return {.locale = frame.Texts(),
          .scale = static_cast<double>(frame.module.sngScale),
          .long_date = frame.module.blnUseLongDate,
          .number_separator = frame.module.strRefSeperator};
}

RecordsetPtr InOrder(const ReportFrame& frame, Source source, std::string_view columns) {
  RecordsetPtr rows = frame.Rowset(source)->Clone(adLockUnspecified);
  rows->Sort(columns);
  return rows;
}

// A source's rows are numbered in the order in which they were fetched.
Error WhileWritingRow(const Error& error, const ReportFrame& frame, const Recordset::Row& row) {
  return error.While(fmt::format("writing {} from row {}", ReportTypeText(frame.lngReportType),
                                 static_cast<std::uint32_t>(row.Bookmark()) + 1));
}

}  // namespace pstolvane1
