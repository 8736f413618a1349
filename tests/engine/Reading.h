// Short ways to read a database through the engine.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "session/data/Chunk.h"
#include "session/data/Error.h"
#include "session/data/Provider.h"
#include "session/sql/Translate.h"

namespace pstolvane1 {

using std::chrono::milliseconds;
inline constexpr milliseconds kNoLimit{0};

inline sql::Type TypeNamed(std::string_view name) {
  using sql::Type;
  for (const auto& [type, each] : {std::pair{Type::kNull, "null"},
                                   {Type::kText, "text"},
                                   {Type::kFlag, "flag"},
                                   {Type::kWhole, "whole"},
                                   {Type::kBigWhole, "big"},
                                   {Type::kMoney, "money"},
                                   {Type::kDecimal, "decimal"},
                                   {Type::kSingle, "single"},
                                   {Type::kReal, "real"},
                                   {Type::kDate, "date"}}) {
    if (name == each) return type;
  }
  throw std::runtime_error("no type " + std::string(name));
}

// Takes the engine's own text with its columns before it: "whole Id, text Name: SELECT id, name
// ...".
inline sql::Translation PlainText(std::string_view text, const sql::Catalog& /*catalog*/) {
  sql::Translation translation;
  const std::size_t colon = text.find(": ");
  if (colon == text.npos) throw Error(ErrorNumber::kQueryRefused, "no columns are told");
  std::string_view columns = text.substr(0, colon);
  translation.text = text.substr(colon + 2);
  while (!columns.empty()) {
    const std::string_view column = columns.substr(0, columns.find(", "));
    const std::size_t blank = column.find(' ');
    translation.columns.push_back({.name = std::string(column.substr(blank + 1)),
                                   .type = TypeNamed(column.substr(0, blank))});
    columns.remove_prefix(std::min(columns.size(), column.size() + 2));
  }
  return translation;
}

// The same for a server, which is told where every table is: "@t" is the table t.
inline sql::Translation PlainServerText(std::string_view text, const sql::Catalog& catalog) {
  sql::Translation translation = PlainText(text, catalog);
  const sql::CatalogTable* table = catalog.Find("t");
  const std::string place = table != nullptr ? table->schema + "." : "";
  for (std::size_t at = 0; (at = translation.text.find('@', at)) != std::string::npos;) {
    translation.text.replace(at, 1, place);
  }
  return translation;
}

inline std::string Shown(const Chunk& chunk, const ColumnInfo& column, std::size_t at,
                         std::size_t row) {
  if (chunk.IsNull(at, row)) return "(null)";
  switch (column.type) {
    case adInteger:
      return std::to_string(chunk.Get<std::int32_t>(at, row));
    case adBigInt:
      return std::to_string(chunk.Get<std::int64_t>(at, row));
    case adBoolean:
      return std::to_string(chunk.Get<std::int16_t>(at, row));
    case adSingle:
      return Variant(chunk.Get<float>(at, row)).ToText();
    case adDouble:
      return Variant(chunk.Get<double>(at, row)).ToText();
    case adCurrency:
      return Currency::FromTenThousandths(chunk.Get<std::int64_t>(at, row)).ToText();
    case adDate:
      return Date(chunk.Get<double>(at, row)).ToIso();
    default:
      return std::string(chunk.Text(at, row));
  }
}

// All rows left, a line each, cells apart by "|".
inline std::vector<std::string> Lines(Cursor& cursor) {
  std::vector<std::string> lines;
  while (true) {
    Chunk chunk(cursor.Columns());
    const std::size_t rows = cursor.Read(chunk);
    for (std::size_t row = 0; row < rows; ++row) {
      std::string line;
      for (std::size_t at = 0; at < cursor.Columns().size(); ++at) {
        line += (at > 0 ? "|" : "") + Shown(chunk, cursor.Columns()[at], at, row);
      }
      lines.push_back(line);
    }
    if (rows < chunk.Capacity()) return lines;
  }
}

inline std::vector<std::string> Lines(Snapshot& snapshot, std::string_view text) {
  return Lines(*snapshot.Run(text, kNoLimit));
}

inline std::vector<std::string> Lines(Provider& provider, std::string_view text) {
  return Lines(*provider.TakeSnapshot(milliseconds(5000)), text);
}

// "NUMBER DESCRIPTION" of the error that the call raises; "no error" when it raises none.
inline std::string ErrorOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const Error& error) {
    return std::to_string(static_cast<std::int32_t>(error.Number())) + " " + error.Description();
  }
  return "no error";
}

}  // namespace pstolvane1
