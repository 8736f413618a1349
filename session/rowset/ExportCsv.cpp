#include <fmt/format.h>
#include <ostream>
#include <string>

#include "session/data/OutOfMemory.h"
#include "session/data/ThreadWork.h"
#include "session/rowset/Export.h"

namespace pstolvane1 {
namespace {

std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  for (const char c : text) {
    quoted += c;
    if (c == '"') quoted += '"';
  }
  return quoted += '"';
}

// An empty text is quoted, so that it is not Null.
std::string TextField(std::string_view text) {
  const bool plain = !text.empty() && text.find_first_of(",\"\r\n") == std::string_view::npos &&
                     text.front() != ' ' && text.back() != ' ';
  return plain ? std::string(text) : Quoted(text);
}

std::string CsvField(const Recordset::Row& row, ColumnHandle column, DataType type) {
  if (row.IsNull(column)) return {};
  switch (type) {
    case adBSTR:
    case adVarChar:
      return TextField(row.Text(column));
    case adCurrency:
      return row[column].ToCurrency().ToText();
    case adDate:
      return row[column].ToDate().ToIso();
    case adBoolean:
      return row[column].ToBoolean().IsSet() ? "-1" : "0";
    case adSingle:
      return fmt::format("{}", row[column].ToSingle());
    case adDouble:
      return fmt::format("{}", row[column].ToDouble());
    default:
      return fmt::format("{}", row[column].ToInt64());
  }
}

void WriteLines(const Recordset& rowset, std::ostream& out) {
  std::string line;
  for (const ColumnInfo& column : rowset.Columns()) {
    if (column.type == adChapter) continue;
    if (!line.empty()) line += ',';
    line += TextField(column.name);
  }
  out << line << "\r\n";
  const WorkInHand in_hand;
  for (const Recordset::Row row : rowset.Rows()) {
    in_hand.Check();
    line.clear();
    bool first = true;
    int place = 0;
    for (const ColumnInfo& column : rowset.Columns()) {
      const ColumnHandle handle{place++};
      if (column.type == adChapter) continue;
      if (!first) line += ',';
      first = false;
      line += CsvField(row, handle, column.type);
    }
    out << line << "\r\n";
  }
}

}  // namespace

void ExportCsv(const Recordset& rowset, std::ostream& out) {
  TellingWhatRanOut("exporting the rowset", [&] { WriteLines(rowset, out); });
}

}  // namespace pstolvane1
