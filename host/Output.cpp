#include "host/Output.h"

#include <ostream>
#include <sstream>
#include <unistd.h>
#include <vector>

#include "host/OutputFile.h"
#include "host/OutputStream.h"
#include "host/ReportHead.h"
#include "host/Terminal.h"
#include "host/TextTable.h"
#include "host/print/ExportPdf.h"
#include "session/data/Error.h"
#include "session/data/TextFold.h"
#include "session/rowset/Locale.h"
#include "session/rowset/ReportView.h"

namespace pstolvane1::host {
namespace {

void WriteStream(const OutputOptions& options, const std::function<void(std::ostream&)>& write) {
  RefuseBooks(options.path, options.books);
  if (options.path.empty()) {
    WriteInto(STDOUT_FILENO, "to the standard output", write);
  } else {
    OutputFile(options.path).Write(write);
  }
}

// Empty for all of them.
std::vector<std::string> NamedColumns(const OutputOptions& options) {
  if (options.columns.empty()) return {};
  if (options.format == Format::kCsv || options.format == Format::kJson) {
    throw Error(ErrorNumber::kArgumentOutOfRange,
                "csv and json hold every column; --columns chooses those of the other forms, such "
                "as sheet and records");
  }
  std::vector<std::string> names;
  if (EqualFolded(options.columns, "all")) return names;
  std::istringstream text(options.columns);
  for (std::string name; std::getline(text, name, ',');) names.push_back(name);
  return names;
}

}  // namespace

void Write(const Recordset& rowset, ReportLook look, const OutputOptions& options,
           const std::function<std::string()>& json) {
  const auto locale = Locale::Get(options.locale);
  look.columns = NamedColumns(options);
  switch (options.format) {
    case Format::kTable: {
      std::ostringstream table;
      table.exceptions(std::ios::badbit);
      const bool terminal = options.path.empty() && StandardOutputIsTerminal();
      const bool as_wide_as_it_is = !terminal || !options.columns.empty();
      WriteTable(ReportView(rowset, locale, look), terminal, table,
                 as_wide_as_it_is ? 0 : TerminalWidth());
      WriteText(table.str(), options);
      return;
    }
    case Format::kCsv:
      return WriteStream(options, [&rowset](std::ostream& out) { ExportCsv(rowset, out); });
    case Format::kJson:
      return WriteStream(options, [&json](std::ostream& out) { out << json() << '\n'; });
    case Format::kHtml:
      return WriteStream(options,
                         [&](std::ostream& out) { ExportHtml(rowset, look, locale, out); });
    case Format::kSheet:
      return WriteStream(options, [&](std::ostream& out) {
        ExportSheet(rowset, look, locale, options.sheet, out);
      });
    case Format::kPdf: {
      if (options.path.empty() && StandardOutputIsTerminal()) {
        throw Error(ErrorNumber::kArgumentOutOfRange,
                    "printed pages go into a file or to a printer: name the file with --out");
      }
      const print::PrintStyle style = PrintStyleOf(options);
      return WriteStream(
          options, [&](std::ostream& out) { print::ExportPdf(rowset, look, locale, style, out); });
    }
    case Format::kRecords:
      return WriteStream(options,
                         [&](std::ostream& out) { ExportRecords(rowset, look, locale, out); });
    case Format::kXlsx: {
      if (options.path.empty()) {
        throw Error(ErrorNumber::kArgumentOutOfRange,
                    "a workbook goes into a file: name it with --out");
      }
      return WriteStream(options,
                         [&](std::ostream& out) { ExportXlsx(rowset, look, locale, out); });
    }
  }
}

void WriteText(std::string_view text, const OutputOptions& options) {
  if (options.path.empty()) {
    RefuseBooks(options.path, options.books);
    Show(std::string(text));
  } else {
    WriteStream(options, [text](std::ostream& out) { out << text; });
  }
}

}  // namespace pstolvane1::host
