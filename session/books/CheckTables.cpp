#include <algorithm>

#include "session/books/Checks.h"
#include "session/books/Schema.h"
#include "session/sql/Catalog.h"

namespace pstolvane1::books {
namespace {

struct Declared {
  std::string name, type;
};

std::string Folded(std::string text) {
  std::ranges::transform(text, text.begin(), [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  });
  return text;
}

// Of a table or a view; none when there is no such thing.
std::vector<Declared> ColumnsIn(Reader& books, const Table& table) {
  std::vector<Declared> columns;
  for (const auto& row :
       books.Rows("SELECT name, type FROM pragma_table_info('" + std::string(table.name) + "')")) {
    columns.push_back({row[0].value_or(""), row[1].value_or("")});
  }
  return columns;
}

const Declared* Find(const std::vector<Declared>& columns, std::string_view name) {
  const auto found = std::ranges::find_if(
      columns, [&](const Declared& one) { return Folded(one.name) == Folded(std::string(name)); });
  return found == columns.end() ? nullptr : &*found;
}

// Whether a column of the type can carry what the reports read from the kind.
bool Carries(sql::Type type, ColumnKind kind) {
  using enum sql::Type;
  const bool number = type == kWhole || type == kBigWhole || type == kMoney || type == kDecimal ||
                      type == kSingle || type == kReal;
  switch (kind) {
    case ColumnKind::kKey:
    case ColumnKind::kWhole:
      return type == kWhole || type == kBigWhole;
    case ColumnKind::kFlag:
      return type == kFlag || type == kWhole;
    case ColumnKind::kSingle:
      return number;
    case ColumnKind::kMoney:
      return type == kMoney || type == kDecimal || type == kReal;
    case ColumnKind::kDate:
    case ColumnKind::kDateTime:
      return type == kDate;
    case ColumnKind::kText:
      break;
  }
  return type == kText;
}

std::string_view Wanted(ColumnKind kind) {
  switch (kind) {
    case ColumnKind::kKey:
    case ColumnKind::kWhole:
      return "a whole number";
    case ColumnKind::kFlag:
      return "a flag";
    case ColumnKind::kSingle:
      return "a quantity";
    case ColumnKind::kMoney:
      return "an amount";
    case ColumnKind::kDate:
    case ColumnKind::kDateTime:
      return "a date";
    case ColumnKind::kText:
      break;
  }
  return "text";
}

void CheckType(const Table& table, const Column& column, const Declared& declared,
               Findings& findings) {
  const auto read = sql::ColumnOfDeclaration(declared.name, declared.type);
  if (read && Carries(read->type, column.kind)) return;
  findings.push_back({Severity::kError,
                      "The column " + std::string(table.name) + "." + declared.name +
                          " is declared \"" + declared.type + "\", where the reports need " +
                          std::string(Wanted(column.kind)) + " (" + SqliteType(column) + ").",
                      ""});
}

// The indexes' columns as "a,b,c" in small letters, one text an index. Indexes over a part of the
// rows or over expressions do not count.
std::vector<std::string> IndexesIn(Reader& books, const Table& table) {
  std::vector<std::string> indexes;
  for (const auto& row : books.Rows(
           "SELECT (SELECT group_concat(name) FROM (SELECT coalesce(name, '()') AS name FROM "
           "pragma_index_info(l.name) ORDER BY seqno)) FROM pragma_index_list('" +
           std::string(table.name) + "') l WHERE partial = 0")) {
    indexes.push_back(Folded(row[0].value_or("")));
  }
  return indexes;
}

}  // namespace

bool CheckTables(Reader& books, Findings& findings) {
  bool complete = true;
  for (const Table& table : Tables()) {
    const auto columns = ColumnsIn(books, table);
    if (columns.empty()) {
      complete = false;
      findings.push_back({Severity::kError, "The table " + std::string(table.name) + " is missing.",
                          SqliteCreateTable(table) + ";"});
      continue;
    }
    for (const Column& column : table.columns) {
      if (const Declared* declared = Find(columns, column.name)) {
        CheckType(table, column, *declared, findings);
        continue;
      }
      complete = false;
      const bool key = column.kind == ColumnKind::kKey;
      findings.push_back({Severity::kError,
                          "The column " + std::string(table.name) + "." + std::string(column.name) +
                              " is missing.",
                          key ? ""
                              : "ALTER TABLE " + std::string(table.name) + " ADD COLUMN " +
                                    std::string(column.name) + " " + SqliteType(column) + ";"});
    }
  }
  return complete;
}

void CheckIndexes(Reader& books, Findings& findings) {
  for (const Table& table : Tables()) {
    const auto present = IndexesIn(books, table);
    const bool is_table =
        !books
             .Rows("SELECT 1 FROM sqlite_master WHERE type = 'table' AND lower(name) = '" +
                   Folded(std::string(table.name)) + "'")
             .empty();
    if (!is_table) continue;
    for (const Index& index : table.indexes) {
      std::string wanted = Folded(std::string(index.columns));
      std::erase(wanted, ' ');
      const bool served = std::ranges::any_of(
          present, [&](const std::string& one) { return (one + ",").starts_with(wanted + ","); });
      if (served || !books.Understands("SELECT " + std::string(index.columns) + " FROM " +
                                       std::string(table.name))) {
        continue;
      }
      findings.push_back({Severity::kHint,
                          "No index of " + std::string(table.name) + " begins with " +
                              std::string(index.columns) + ".",
                          SqliteCreateIndex(table, index) + ";"});
    }
  }
}

}  // namespace pstolvane1::books
