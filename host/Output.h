// Where a result goes and in which form.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "session/data/Recordset.h"

namespace pstolvane1::host {

enum class Format { kTable, kCsv, kJson, kHtml, kXlsx };

struct OutputOptions {
  Format format = Format::kTable;
  std::string path;     // empty: standard output
  std::string locale;   // of the table's, page's and sheet's own texts
  std::string columns;  // of a table: those that are wanted; "" is what has room
  std::string books;    // that are read; nothing is written to them
};

// Writes a rowset; json gives the JSON text where that form is asked for. A file takes its name
// only when it is whole. Error 3001 when it cannot be written, or for a sheet without a path; a
// reader of the standard output who goes away early is no error.
void Write(const Recordset& rowset, std::string_view title, const OutputOptions& options,
           const std::function<std::string()>& json);
// Writes any other text.
void WriteText(std::string_view text, const OutputOptions& options);

}  // namespace pstolvane1::host
