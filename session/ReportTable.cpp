#include "session/ReportTable.h"

#include <vector>

#include "analysis/AnalysisReports.h"
#include "bills/BillsReports.h"
#include "monthly/MonthlyReports.h"
#include "pending/PendingReports.h"
#include "stock/StockReports.h"
#include "vehicle/VehicleReports.h"

namespace pstolvane1 {

std::span<const ReportRow> AllReports() {
  static const std::vector<ReportRow> all = [] {
    std::vector<ReportRow> rows;
    for (const auto family : {StockReports(), MonthlyReports(), PendingReports(), AnalysisReports(),
                              VehicleReports(), BillsReports()}) {
      rows.insert(rows.end(), family.begin(), family.end());
    }
    return rows;
  }();
  return all;
}

}  // namespace pstolvane1
