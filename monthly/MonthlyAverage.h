// A month ledger at a weighted average that is carried over the years.
#pragma once

#include <string>

#include "monthly/MonthlyArguments.h"
#include "session/Launch.h"

namespace pstolvane1 {

// One row a stock key and year, of what was there before the books' first day: item_id, godown_id,
// batch_id, year_id, qtybal, qtyin and valuein (what enters the average), opqtyforcal (Null in a
// year without opening lines). In the first year opening lines alone count, up to that day.
[[nodiscard]] std::string ComposeMonthlyBalances(const MonthlyArguments& arguments,
                                                 Date dtBooksFrom);
// One row a stock key, book and month of the year: item_id, godown_id, batch_id, book_id (1 from
// the books' first day on and before the period, 2 in it), inc_id, qtyin, qtyinvalue, qtyout,
// qtyoutvalue.
[[nodiscard]] std::string ComposeMonthlyMovements(const MonthlyArguments& arguments,
                                                  Date dtBooksFrom);

[[nodiscard]] SourceQueries Monthly_Avg(const modStolvane1& module,
                                        const MonthlyArguments& arguments);
[[nodiscard]] RecordsetPtr mMonthly_Avg(ReportFrame& frame);

}  // namespace pstolvane1
