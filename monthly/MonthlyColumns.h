// The columns of a month ledger.
#pragma once

#include "session/rowset/ReportRowset.h"

namespace pstolvane1 {

// The columns of the alternate unit are there on request; otherwise their handles are no column.
struct MonthSideColumns {
  ColumnHandle quantity, unit, alt_quantity, alt_unit, value;
  ColumnHandle total_quantity, total_unit, total_value;
  ColumnHandle raw_quantity, raw_value;  // "QtyInC": the month's own figures
};

struct MonthProfitColumns {
  ColumnHandle consumption, gross_profit, per_unit, percent;
};

struct MonthlyColumns {
  ColumnHandle month, month_id, year_id, inc_id, value_opening;
  MonthSideColumns inwards, outwards, closing;
  MonthProfitColumns profit, total_profit;
};

[[nodiscard]] std::span<const ReportColumn> CreateMonthlyGrid(bool blnAltUom);
[[nodiscard]] const MonthlyColumns& MonthlyColumnsOf(bool blnAltUom);

}  // namespace pstolvane1
