#include <fmt/format.h>
#include <nlohmann/json.hpp>
#include <string>

#include "session/data/ThreadWork.h"
#include "session/rowset/Export.h"

namespace pstolvane1 {
namespace {

// What is not UTF-8 becomes the replacement character: books made elsewhere may hold any bytes.
std::string JsonText(std::string_view text) {
  return nlohmann::json(std::string(text))
      .dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

std::string JsonCell(const Recordset::Row& row, ColumnHandle column, DataType type) {
  if (row.IsNull(column)) return "null";
  switch (type) {
    case adBSTR:
    case adVarChar:
      return JsonText(row.Text(column));
    case adCurrency:
      return '"' + row[column].ToCurrency().ToText() + '"';
    case adDate:
      return '"' + row[column].ToDate().ToIso() + '"';
    case adBoolean:
      return row[column].ToBoolean().IsSet() ? "true" : "false";
    case adSingle:
      return fmt::format("{}", row[column].ToSingle());
    case adDouble:
      return fmt::format("{}", row[column].ToDouble());
    case adChapter:
      return ExportJson(*row[column].ToRowset());
    default:
      return fmt::format("{}", row[column].ToInt64());
  }
}

}  // namespace

std::string ColumnsAsJson(const Recordset& rowset) {
  std::string json = "[";
  for (const ColumnInfo& column : rowset.Columns()) {
    if (json.size() > 1) json += ',';
    json += fmt::format(R"({{"name":{},"type":{},"attributes":{}}})", JsonText(column.name),
                        static_cast<int>(column.type), column.attributes);
  }
  return json += ']';
}

std::string RowsAsJson(const Recordset& rowset) {
  std::string json = "[";
  const WorkInHand in_hand;
  for (const Recordset::Row row : rowset.Rows()) {
    in_hand.Check();
    json += json.size() > 1 ? ",\n[" : "[";
    int place = 0;
    for (const ColumnInfo& column : rowset.Columns()) {
      if (place > 0) json += ',';
      json += JsonCell(row, ColumnHandle{place++}, column.type);
    }
    json += ']';
  }
  return json += ']';
}

std::string ExportJson(const Recordset& rowset) {
  return R"({"columns":)" + ColumnsAsJson(rowset) + R"(,"rows":)" + RowsAsJson(rowset) + "}";
}

}  // namespace pstolvane1
