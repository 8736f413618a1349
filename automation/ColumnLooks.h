// What people read over the columns of each report, and how its columns stand together.
#pragma once

#include <span>
#include <string_view>

#include "session/rowset/ReportLook.h"

namespace pstolvane1::automation {

// One column of the reports that a part is for. All words are English; a table in another language
// has the same columns.
struct ColumnWords {
  std::string_view column;
  std::string_view label;
  bool shown = true;
  bool leads = false;
  std::string_view stands_in = {};
  int level = 0;
  char depth_mark = '\0';
  std::string_view nameless = {};
  std::string_view unit_of = {};
  int telling = 0;
};

// The columns of all reports whose operation's name begins so; "" is every report. What an earlier
// part says of a column holds.
struct ReportWords {
  std::string_view reports;
  std::span<const ColumnWords> columns;
};

[[nodiscard]] std::span<const ReportWords> EnglishWords();
// nullptr for a column that no part tells of. Names ignore case.
[[nodiscard]] const ColumnWords* FindWords(std::string_view operation, std::string_view column);
// How a column of the operation's report looks; one that no part tells of is shown by its name.
[[nodiscard]] ColumnLook LookOfColumn(std::string_view operation, std::string_view column);

}  // namespace pstolvane1::automation
