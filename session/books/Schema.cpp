#include "session/books/Schema.h"

#include <algorithm>
#include <vector>

#include "session/books/SchemaTables.h"

namespace pstolvane1::books {
namespace {

char Folded(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool SameName(std::string_view a, std::string_view b) {
  return std::ranges::equal(a, b, [](char x, char y) { return Folded(x) == Folded(y); });
}

template <typename Named>
const Named* FindByName(std::span<const Named> all, std::string_view name) {
  const auto found =
      std::ranges::find_if(all, [&](const Named& one) { return SameName(one.name, name); });
  return found == all.end() ? nullptr : &*found;
}

}  // namespace

const Column* Table::Find(std::string_view column) const { return FindByName(columns, column); }

std::span<const Table> Tables() {
  static const std::vector<Table> all = [] {
    std::vector<Table> tables;
    for (const auto part : {MasterTables(), AccountTables(), DocumentTables()}) {
      tables.insert(tables.end(), part.begin(), part.end());
    }
    return tables;
  }();
  return all;
}

const Table* FindTable(std::string_view name) { return FindByName(Tables(), name); }

std::string SqliteType(const Column& column) {
  switch (column.kind) {
    case ColumnKind::kKey:
    case ColumnKind::kWhole:
      return "INTEGER";
    case ColumnKind::kFlag:
      return "BIT";
    case ColumnKind::kSingle:
      return "REAL";
    case ColumnKind::kMoney:
      return "DECIMAL(19,4)";
    case ColumnKind::kDate:
      return "DATE";
    case ColumnKind::kDateTime:
      return "DATETIME";
    case ColumnKind::kText:
      break;
  }
  return "VARCHAR(" + std::to_string(column.size) + ")";
}

std::string SqliteCreateTable(const Table& table) {
  std::string text = "CREATE TABLE " + std::string(table.name) + " (";
  const char* separator = "\n  ";
  for (const Column& column : table.columns) {
    text += separator;
    text += column.name;
    text += ' ' + SqliteType(column);
    if (column.kind == ColumnKind::kKey) text += " NOT NULL";
    if (column.kind == ColumnKind::kText) text += " COLLATE NOCASE";
    separator = ",\n  ";
  }
  if (!table.key.empty()) text += ",\n  PRIMARY KEY (" + std::string(table.key) + ")";
  return text + ")";
}

std::string SqliteCreateIndex(const Table& table, const Index& index) {
  std::string text = "CREATE INDEX " + std::string(index.name) + " ON ";
  text += table.name;
  return text + " (" + std::string(index.columns) + ")";
}

std::string SqliteSchema() {
  std::string text;
  for (const Table& table : Tables()) {
    text += SqliteCreateTable(table) + ";\n";
    for (const Index& index : table.indexes) text += SqliteCreateIndex(table, index) + ";\n";
  }
  return text;
}

}  // namespace pstolvane1::books
