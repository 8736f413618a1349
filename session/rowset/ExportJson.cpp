#include <fmt/format.h>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

#include "session/data/OutOfMemory.h"
#include "session/data/ThreadWork.h"
#include "session/rowset/Export.h"

namespace pstolvane1 {
namespace {

constexpr std::string_view kDoing = "exporting the rowset";

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

std::string ColumnsOf(const Recordset& rowset) {
  std::string json = "[";
  for (const ColumnInfo& column : rowset.Columns()) {
    if (json.size() > 1) json += ',';
    json += fmt::format(R"({{"name":{},"type":{},"attributes":{}}})", JsonText(column.name),
                        static_cast<int>(column.type), column.attributes);
  }
  return json += ']';
}

std::string RowsOf(const Recordset& rowset) {
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

}  // namespace

std::string ColumnsAsJson(const Recordset& rowset) {
  return TellingWhatRanOut(kDoing, [&] { return ColumnsOf(rowset); });
}

std::string RowsAsJson(const Recordset& rowset) {
  return TellingWhatRanOut(kDoing, [&] { return RowsOf(rowset); });
}

std::string ExportJson(const Recordset& rowset) {
  return TellingWhatRanOut(kDoing, [&] {
    return R"({"columns":)" + ColumnsOf(rowset) + R"(,"rows":)" + RowsOf(rowset) + "}";
  });
}

}  // namespace pstolvane1
