// The columns of the stock rowset: one shape for every statement.
#pragma once

#include <span>

#include "session/rowset/ReportRowset.h"

namespace pstolvane1 {

// With blnItemLines the lines are items and their godowns, otherwise groups and their items.
[[nodiscard]] std::span<const ReportColumn> mStock_Columns(bool blnItemLines);

// The columns of one side of a line.
struct StockSideColumns {
  ColumnHandle quantity, unit, alt_quantity, alt_unit, rate, value, total_value;
  ColumnHandle quantity_sort, alt_quantity_sort, rate_sort, value_sort;
};

// Where everything is written. What a shape lacks is kNoColumn.
struct StockColumns {
  static constexpr ColumnHandle kNoColumn{-1};

  // "ItemName" and "Godown" of item lines; "Particulars", "Categoryname" and "Itemname" of groups.
  ColumnHandle first, category_name = kNoColumn, item_name, godown = kNoColumn;
  StockSideColumns opening, inwards, outwards, closing;
  ColumnHandle gross_profit, consumption, profit_percent, profit_per_unit;
  ColumnHandle total_gross_profit, total_consumption, total_profit_percent;
  ColumnHandle item_id, godown_id = kNoColumn, batch_id = kNoColumn, category_id = kNoColumn;
  ColumnHandle group_line, total_line, parent_name;
  ColumnHandle first_sort, gross_profit_sort, profit_sort, consumption_sort;
};
[[nodiscard]] const StockColumns& StockColumnsOf(bool blnItemLines);

}  // namespace pstolvane1
