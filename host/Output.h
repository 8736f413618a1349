// Where a result goes and in which form.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "session/data/Recordset.h"
#include "session/rowset/Export.h"
#include "session/rowset/ReportLook.h"

namespace pstolvane1::host {

enum class Format { kTable, kCsv, kJson, kHtml, kXlsx, kSheet, kRecords, kPdf };

struct OutputOptions {
  Format format = Format::kTable;
  std::string path;          // empty: standard output
  std::string locale;        // of the table's, page's and sheet's own texts
  std::string columns;       // those that are wanted; "" is all, and in a table what has room
  std::string books;         // that are read; nothing is written to them
  SheetStyle sheet;          // of that form
  std::string company;       // on top of a report; "" is the name of its books
  std::string letterhead;    // the file with what stands on top of printed pages; "" is none
  std::string paper = "A4";  // of printed pages
};

// Writes a rowset as it looks; json gives the JSON text where that form is asked for. A file takes
// its name only when it is whole. Error 3001 when it cannot be written, for a workbook without a
// path, for printed pages on a terminal, for a column that is not shown, and for columns of csv and
// json; a reader of the standard output who goes away early is no error.
void Write(const Recordset& rowset, ReportLook look, const OutputOptions& options,
           const std::function<std::string()>& json);
// Writes any other text.
void WriteText(std::string_view text, const OutputOptions& options);

}  // namespace pstolvane1::host
