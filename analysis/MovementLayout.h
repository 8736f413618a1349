// The columns of the movement analyses: one layout with small differences.
#pragma once

#include <array>
#include <span>

#include "session/rowset/ReportRowset.h"

namespace pstolvane1 {

// Where the figures of a line, a group, an area or the report stand.
struct MovementFigureColumns {
  ColumnHandle qty_in, value_in, qty_out, value_out, value, balance, average, returned;
};
struct MovementTwinColumns {
  ColumnHandle particulars, qty_in, qty_out, balance, average, returned, value;
};

struct MovementColumns {
  ColumnHandle particulars, ledger_name, item_name, parent, child;
  MovementFigureColumns line, group, area, report;
  ColumnHandle qty_in_unit, rate_in, qty_out_unit, rate_out;
  ColumnHandle item_id, ledger_id, parent_name, total;
  RuleColumn rule;
  ColumnHandle id_parent, id_child, par;
  MovementTwinColumns twins, second_twins;
  ColumnHandle area_name;
  // Not in every layout.
  ColumnHandle area_twin{-1}, item_row{-1}, group_id{-1};
};

struct MovementLayout {
  std::span<const ReportColumn> columns;
  MovementColumns at;
};

extern const MovementLayout kSalesLayout;
extern const MovementLayout kPurchasesLayout;
extern const MovementLayout kItemRelationLayout;

}  // namespace pstolvane1
