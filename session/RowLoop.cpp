#include "session/RowLoop.h"

#include <fmt/format.h>

namespace pstolvane1 {

Error WhileWritingRow(const Error& error, const ReportFrame& frame, std::int32_t row) {
  return error.While(
      fmt::format("writing {} from row {}", ReportTypeText(frame.lngReportType), row));
}

}  // namespace pstolvane1
