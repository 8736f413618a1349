#include "host/Output.h"

#include <ostream>
#include <sstream>
#include <unistd.h>

#include "host/OutputFile.h"
#include "host/OutputStream.h"
#include "host/ReportHead.h"
#include "host/Terminal.h"
#include "host/TextTable.h"
#include "host/print/ExportPdf.h"
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

}  // namespace

void Write(const Recordset& rowset, const ReportLook& look, const OutputOptions& options,
           const std::function<std::string()>& json) {
  const auto locale = Locale::Get(options.locale);
  switch (options.format) {
    case Format::kTable: {
      std::ostringstream table;
      table.exceptions(std::ios::badbit);
      const bool terminal = options.path.empty() && StandardOutputIsTerminal();
      WriteTable(ReportView(rowset, locale, look), terminal, table, terminal ? TerminalWidth() : 0,
                 options.columns);
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
