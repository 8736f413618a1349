// One golden case as text.
//
//   # What the case shows, and how its figures come about.
//
//   table LedgerNames1
//   Ledger_id | LedgerName
//   1         | Anand
//
//   call LedgersByCode
//   bytYearno = 3
//   sCode =
//
//   expect anyCount 0
//   ID 3 | NAME 200
//   1    | Anand
//
// Blocks end at a blank line. Before the call there may be "set" lines: "set cancel", "set locale
// de_DE", "set year = 2003-04-01 .. 2004-03-31" for the dates of SetConnection, "set alias taItem =
// Items1.ItemPartNo", "set filter strVouchertypeFilter = ...". In a table Null is (null), an empty
// text is "", a long rule is "_ x 90", and a cell with a bar, a quote or blanks at its ends stands
// in quotes. Columns that a table of the books does not name are Null.
//
// "books shop" takes the tables of shop.books in the folder of the cases, and tables in the case
// add rows to them.
//
// A rowset of more than 40 columns stands on its side: a line for each column, a cell for each row,
// and Null is an empty cell. An expectation may also be "expect error 94" with the description on
// the next line, and behind it may stand "expect events" with one event a line.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace pstolvane1::golden {

struct TextTable {
  std::string name;
  std::vector<std::string> head;
  std::vector<std::vector<std::string>> rows;  // cells as they stand, quotes taken off; see IsNull
};

struct CaseFile {
  std::vector<std::string> comment;  // its lines, with "#"
  std::vector<TextTable> books;
  std::vector<std::pair<std::string, std::string>> settings;  // what, value
  std::string operation;
  std::vector<std::pair<std::string, std::string>> arguments;  // in their order
  std::string expected;                                        // from the first "expect" to the end
  std::vector<std::string> events;                             // of it; only read when has_events
  bool has_events = false;
};

// A std::runtime_error names the line of what cannot be read. Shared books lie in the folder.
[[nodiscard]] CaseFile ReadCase(const std::string& path, const std::string& books_folder);
// Writes the case again with another expectation.
void RewriteCase(const std::string& path, const std::string& expected);

// A table with aligned columns, a line each, the head first.
[[nodiscard]] std::string Aligned(const std::vector<std::vector<std::string>>& lines);

// The same with the lines as columns, Null as an empty cell.
[[nodiscard]] std::string OnItsSide(const std::vector<std::vector<std::string>>& lines);

inline const std::string kNullCell = "(null)";
// A text as a cell shows it, and back.
[[nodiscard]] std::string CellOf(const std::string& value);
[[nodiscard]] std::string TextOf(const std::string& cell);

}  // namespace pstolvane1::golden
