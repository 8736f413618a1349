// A month ledger at one running rate of the year: all value that came in over all quantity.
#pragma once

#include <string>

#include "monthly/MonthlyArguments.h"
#include "session/Launch.h"

namespace pstolvane1 {

// Rows of an item: what the year opened with and what came and went before the period (month 0),
// and one a month of the period: item_id, inc_id, qtyin, valuein, qtyout, valueout. Equal rows of
// month 0 are one.
[[nodiscard]] std::string ComposeMonthlySimple(const MonthlyArguments& arguments, Date dtBooksFrom);
[[nodiscard]] SourceQueries Monthly_SimpleAvg(const modStolvane1& module,
                                              const MonthlyArguments& arguments);
[[nodiscard]] RecordsetPtr mMonthly_SimpleAvg(ReportFrame& frame);
[[nodiscard]] RecordsetPtr mMonthly_SimpleAvgGrouped(ReportFrame& frame);

}  // namespace pstolvane1
