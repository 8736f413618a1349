// Writes a month ledger.
#pragma once

#include <cstddef>
#include <cstdint>

#include "monthly/MonthlyArguments.h"
#include "movements/StockKeyColumns.h"
#include "session/ReportFrame.h"
#include "valuation/MonthLedger.h"
#include "valuation/Months.h"

namespace pstolvane1 {

// The first and last day of a ledger, without times.
[[nodiscard]] StockPeriod PeriodOf(const MonthlyArguments& arguments);
// True where both units have one name, in any case, as in a ledger without units.
[[nodiscard]] bool HasOneUnit(const StockUnits& units);

// What the methods' ledgers differ in.
struct MonthlyForm {
  StockUnits units;          // none for a group
  bool alt_columns = false;  // they are there, and filled where the two units differ
  bool raw_figures = false;  // QtyInC and its like are filled
  bool month_keys = false;   // Inc_Id is filled
};

// Ends that many passes of the report in hand, with the progress total given. Only the weighted
// average is ended by a cancel; the other ledgers go on, and that is meant.
void EndPasses(ReportFrame& frame, std::int32_t progress_total, std::size_t passes);

// "Opening Balance", a line for each month of the ledger, and the totals on the last of them. Shown
// money is divided by sngScale (error 11 for a scale of 0).
[[nodiscard]] RecordsetPtr WriteMonthLedger(ReportFrame& frame, const MonthlyArguments& arguments,
                                            const MonthLedger& ledger, const MonthlyForm& form);

}  // namespace pstolvane1
