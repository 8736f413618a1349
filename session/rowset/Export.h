// A rowset as a file: CSV and JSON with every column, HTML and XLSX as a person sees it.
#pragma once

#include <iosfwd>
#include <memory>
#include <string>
#include <string_view>

#include "session/data/Recordset.h"
#include "session/rowset/Locale.h"
#include "session/rowset/ReportLook.h"

namespace pstolvane1 {

// All exports write the visible rows in their order and leave the position where it is. Values in
// CSV and JSON are exact and the same in every locale: money with four decimals, a single as the
// shortest decimal that reads back to it, dates as ISO text with the time only if there is one.

// A header line with the columns' names, then a line for each row, ended by CRLF, UTF-8. Null is an
// empty field, an empty text is "". Flags are -1 and 0. Chapter columns are left out.
void ExportCsv(const Recordset& rowset, std::ostream& out);

// {"columns": [{"name", "type", "attributes"}], "rows": [[...]]}. Null is null, an empty text "",
// money a string, flags true and false; a chapter is such an object again.
[[nodiscard]] std::string ExportJson(const Recordset& rowset);
// The two members alone, as JSON texts, for an object that holds more.
[[nodiscard]] std::string ColumnsAsJson(const Recordset& rowset);
[[nodiscard]] std::string RowsAsJson(const Recordset& rowset);

// What a person sees takes a locale: error 91 without one.

// A whole page with one table: the columns that have content, numbers to the right, groups moved
// in, rules and totals drawn. It prints on paper laid across, as wide as that is. Without a look a
// page has a title and the columns by their names.
void ExportHtml(const Recordset& rowset, const ReportLook& look,
                const std::shared_ptr<const Locale>& locale, std::ostream& out);
void ExportHtml(const Recordset& rowset, std::string_view title,
                const std::shared_ptr<const Locale>& locale, std::ostream& out);

// What is shown, for a spreadsheet or a script: shown columns alone, no rules and empty lines,
// numbers without grouping, symbol and unit, with ".", dates as ISO text.
struct SheetStyle {
  std::string separator = ",";
  bool byte_order_mark = false;
};
// CSV with the columns' labels, ended by CRLF.
void ExportSheet(const Recordset& rowset, const ReportLook& look,
                 const std::shared_ptr<const Locale>& locale, const SheetStyle& style,
                 std::ostream& out);
// A JSON object a line, by the columns' names; numbers are numbers, an empty cell is null. One of a
// report begins with "kind", which is line, group or total, and "level", the depth of a line.
void ExportRecords(const Recordset& rowset, const ReportLook& look,
                   const std::shared_ptr<const Locale>& locale, std::ostream& out);

// A workbook of one sheet with what the page shows: numbers, amounts, percentages and dates as
// such, the heads and the first column in place, lines below a group folding, a filter on the
// heads. It is put together in memory and, part by part, in the folder for temporary files; error
// 3001 when there is no room. Nothing of a workbook that fails is written.
void ExportXlsx(const Recordset& rowset, const ReportLook& look,
                const std::shared_ptr<const Locale>& locale, std::ostream& out);
void ExportXlsx(const Recordset& rowset, std::string_view title,
                const std::shared_ptr<const Locale>& locale, std::ostream& out);
// The same into a file of that name. Error 3001 with the name when it cannot be written; then no
// file stays.
void ExportXlsx(const Recordset& rowset, const ReportLook& look,
                const std::shared_ptr<const Locale>& locale, const std::string& path);
void ExportXlsx(const Recordset& rowset, std::string_view title,
                const std::shared_ptr<const Locale>& locale, const std::string& path);

}  // namespace pstolvane1
