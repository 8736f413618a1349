#include "session/ReportRow.h"

#include <algorithm>

namespace pstolvane1 {

const ReportRow* FindRow(std::span<const ReportRow> rows, std::int32_t report_type) {
  const auto row = std::find_if(rows.begin(), rows.end(), [report_type](const ReportRow& r) {
    return r.first <= report_type && report_type <= r.last;
  });
  return row == rows.end() ? nullptr : &*row;
}

std::string ReportTypeText(std::int32_t report_type) {
  for (const EnumName& name : kReportTypeNames) {
    if (name.value == report_type) return std::string(name.name);
  }
  return std::to_string(report_type);
}

}  // namespace pstolvane1
