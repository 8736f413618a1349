// How a rowset is shown to people: the words above it and over its columns, and which of its
// columns stand together.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "session/data/NeedsCpp20.h"

namespace pstolvane1 {

struct ColumnLook {
  std::string label;   // over the column; "" is its own name
  bool shown = true;   // false: a key, or what another column tells as well
  bool leads = false;  // stands before all other columns
  // Its texts stand in the cells of this column. A column that is shown goes there as a whole, if
  // no line has a text in both; one that is not shown fills the cells that are empty.
  std::string stands_in;
  // How deep a line stands that has a text in this column; kHeading for one that heads others.
  int level = 0;
  // Stands in front of a text once for each level that it lies deep, and is not shown; lines whose
  // level another column tells lie so much deeper below it. '\0' is none.
  char depth_mark = '\0';
  std::string nameless;  // stands where the cell has an empty text; Null stays empty
  std::string unit_of;   // the quantity's column, if this is its unit
  int telling = 0;       // 1 is the most telling column, 2 the next; 0 is none of them

  static constexpr int kHeading = -1;
};

struct ReportLook {
  std::string title = {};
  std::vector<std::string> lines = {};  // below the title: whose books, the period and the like
  // None: all columns by their names.
  std::function<ColumnLook(std::string_view column)> column = {};
  // Those to show, by their names or labels in any case, in this order; none is all.
  std::vector<std::string> columns = {};
  // Of a report of groups in a tree: the column that holds the key of a group's line, and the key
  // of the group above another one, 0 at the top. Groups then stand below the one that they belong
  // to, in the order in which they come.
  std::string group_key = {};
  std::function<std::int64_t(std::int64_t key)> group_above = {};
};

// "ValueIn" for "TotalValueIn", "TotValueIn" and "GrpValueIn", which hold its sums; "" for any
// other name.
[[nodiscard]] std::string_view SummedColumn(std::string_view name);

}  // namespace pstolvane1
