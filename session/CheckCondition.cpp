#include "session/CheckCondition.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cstddef>
#include <fmt/format.h>
#include <optional>
#include <vector>

#include "session/QueryText.h"
#include "session/books/Schema.h"
#include "session/data/Error.h"
#include "session/sql/Catalog.h"
#include "session/sql/Translate.h"

namespace pstolvane1 {
namespace {

sql::Catalog CatalogOfTheSchema() {
  std::vector<sql::CatalogTable> tables;
  for (const books::Table& table : books::Tables()) {
    sql::CatalogTable& known = tables.emplace_back();
    known.name = table.name;
    for (const books::Column& column : table.columns) {
      if (auto read = sql::ColumnOfDeclaration(column.name, books::SqliteType(column))) {
        known.columns.push_back(std::move(*read));
      }
    }
  }
  return sql::Catalog(std::move(tables));
}

std::vector<std::string> Split(std::string_view names) {
  std::vector<std::string> parts;
  for (std::size_t from = 0; from <= names.size();) {
    const std::size_t end = std::min(names.find(',', from), names.size());
    std::string_view part = names.substr(from, end - from);
    part.remove_prefix(std::min(part.find_first_not_of(' '), part.size()));
    part.remove_suffix(part.size() - (part.find_last_not_of(' ') + 1));
    parts.emplace_back(part);
    from = end + 1;
  }
  return parts;
}

// "line 2, column 5: ..." of the statement, whose condition begins on its second line, as a place
// of the condition.
std::string InTheCondition(const std::string& told, std::string_view condition) {
  constexpr std::string_view kLine = "line ";
  std::size_t line = 0;
  const char* const begin = told.data() + kLine.size();
  if (!told.starts_with(kLine)) return told;
  const char* const end = std::from_chars(begin, told.data() + told.size(), line).ptr;
  const auto lines = static_cast<std::size_t>(std::count(condition.begin(), condition.end(), '\n'));
  if (line < 2) return told;
  if (line <= lines + 2) return fmt::format("line {}{}", line - 1, std::string_view(end));
  const std::size_t reason = told.find(": ");
  return "at the end" + (reason == std::string::npos ? std::string() : told.substr(reason));
}

// The first Or that stands outside brackets and CASE, counted from 1.
std::optional<std::size_t> OpenOr(std::string_view text) {
  int depth = 0;
  char closing = 0;
  const auto in_word = [](char c) {
    return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_' || c == '.';
  };
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (closing != 0) {
      if (c == closing) closing = 0;
    } else if (c == '\'' || c == '"') {
      closing = c;
    } else if (c == '[') {
      closing = ']';
    } else if (c == '(' || c == ')') {
      depth += c == '(' ? 1 : -1;
    } else if (in_word(c)) {
      const std::size_t from = i;
      while (i + 1 < text.size() && in_word(text[i + 1])) ++i;
      const std::string_view word = text.substr(from, i + 1 - from);
      if (word == "case") ++depth;
      if (word == "end") --depth;
      if (word == "or" && depth == 0) return from + 1;
    }
  }
  return std::nullopt;
}

}  // namespace

std::string CheckCondition(std::string_view tables, std::string_view text) {
  static const sql::Catalog catalog = CatalogOfTheSchema();
  std::string from;
  for (const std::string& table : Split(tables)) {
    if (catalog.Find(table) == nullptr) return "there is no table \"" + table + '"';
    from += from.empty() ? table : " cross join " + table;
  }
  const std::string condition = NormaliseQueryText(text, {});
  try {
    RefuseComments(condition);
  } catch (const Error& error) {
    return error.Description();
  }
  try {
    // Without brackets one that closes too early is seen, with them a clause that comes behind.
    const std::string select = "select 1 as one from " + from + " where";
    (void)sql::TranslateForSqlite(select + "\n" + condition, catalog);
    (void)sql::TranslateForSqlite(select + " (\n" + condition + "\n)", catalog);
  } catch (const Error& error) {
    return InTheCondition(error.Description(), condition);
  }
  if (const auto at = OpenOr(condition)) {
    return fmt::format(
        "column {}: an Or outside brackets weakens the conditions that the report joins with this "
        "one: put brackets around the whole",
        *at);
  }
  return {};
}

}  // namespace pstolvane1
