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
// Blocks end at a blank line. How a cell shows its text stands in CellText.h.
//
// Books: "books shop" takes the tables of shop.books in the folder of the cases, and tables in the
// case add rows to them. Columns that a table does not name are Null.
//
// Settings: "set cancel", "set locale de_DE", "set year = 2003-04-01 .. 2004-03-31" for the dates
// of SetConnection, "set alias taItem = Items1.ItemPartNo", "set filter strVouchertypeFilter =
// ...". A report that differs on the two paths has cases with "set path = synchronous" and "set
// path = asynchronous"; all others run on both.
//
// The call: "call LedgersByCode as customers" starts from the arguments of that name, which stand
// in the file "calls" beside the case, or in the family's ("stock.calls" in the folder of the
// cases):
//
//   arguments customers
//   bytYearno = 3
//   sCode = 30
//
//   arguments banks as customers
//   sCode = 2
//
// An argument in the call replaces the one of that name. "rowset recItem = SELECT ..." passes a
// rowset of the host's, which the SELECT reads from the same books. An argument goes on in lines
// that start with a blank. Of several calls, one session makes one after the other; each must
// deliver its report, and the last one is what the case expects.
//
// The expectation: a head with the columns' types is the whole rowset; one of names alone has the
// columns that the case is about, in its own order. A whole rowset of more than 40 columns stands
// on its side: a line for each column, a cell for each row. There may also stand "expect nothing",
// or "expect error 94" with the description on the next line, which may be left out. Behind it
// there may be "expect events" with one event a line.
#pragma once

#include <istream>
#include <string>
#include <utility>
#include <vector>

#include "CellText.h"

namespace pstolvane1::golden {

struct TextTable {
  std::string name;
  Cells head;
  std::vector<Cells> rows;  // as many cells as the head

  bool operator==(const TextTable&) const = default;
};

struct TextArgument {
  std::string name;
  std::string value;  // a cell, or the SELECT of a rowset
  bool is_rowset = false;
};

struct TextCall {
  std::string operation;
  std::vector<TextArgument> arguments;  // each name once
};

struct TextExpectation {
  std::string line;          // "expect anyCount 0"; empty where the case has none yet
  std::string description;   // of an error
  std::vector<Cells> table;  // the head first; lines may be shorter than the head
  std::vector<std::string> events;
  bool has_events = false;

  [[nodiscard]] bool IsError() const { return line.starts_with("expect error"); }
  // The columns that the case is about; empty for all.
  [[nodiscard]] Cells Columns() const;
  // As it is written, with aligned columns and without the events.
  [[nodiscard]] std::string Text() const;
};

struct CaseFile {
  std::vector<std::string> comment;  // its lines, with "#"
  std::vector<TextTable> books;
  std::vector<std::pair<std::string, std::string>> settings;  // what, value
  std::vector<TextCall> calls;                                // at least one
  TextExpectation expected;
};

// The case at the path, and the books and calls that it names from the folder of the cases. A
// std::runtime_error tells the line of what cannot be read.
[[nodiscard]] CaseFile ReadCase(const std::string& path, const std::string& cases_folder);
// The same from an open text; messages name it.
[[nodiscard]] CaseFile ReadCase(std::istream& text, const std::string& name,
                                const std::string& cases_folder);
// Writes the case again with another expectation.
void RewriteCase(const std::string& path, const std::string& expected);

}  // namespace pstolvane1::golden
