#include "session/books/Schema.h"
#include "session/engine/postgres/Schema.h"
#include "session/sql/EngineText.h"
#include "session/sql/PostgresFold.h"

namespace pstolvane1::books {
namespace {

using sql::QuotedName;

// "A, B, C" one by one.
template <typename Visit>
void ForEachName(std::string_view names, const Visit& visit) {
  while (!names.empty()) {
    const std::size_t comma = std::min(names.find(','), names.size());
    visit(names.substr(0, comma));
    names.remove_prefix(std::min(names.size(), comma + 2));
  }
}

// What stands before a name that is of that schema.
std::string In(std::string_view schema) { return schema.empty() ? "" : QuotedName(schema) + "."; }

}  // namespace

std::string PostgresType(const Column& column) {
  switch (column.kind) {
    case ColumnKind::kKey:
    case ColumnKind::kWhole:
      return "integer";
    case ColumnKind::kFlag:
      return "boolean";
    case ColumnKind::kSingle:
      return std::string(postgres::kSingleMark);
    case ColumnKind::kMoney:
      return "numeric(19,4)";
    case ColumnKind::kDate:
      return "date";
    case ColumnKind::kDateTime:
      return "timestamp";
    case ColumnKind::kText:
      break;
  }
  return "varchar(" + std::to_string(column.size) + ")";
}

std::string PostgresCreateTable(const Table& table, std::string_view schema) {
  std::string text = "CREATE TABLE " + In(schema) + QuotedName(table.name) + " (";
  const char* separator = "\n  ";
  for (const Column& column : table.columns) {
    text += separator + QuotedName(column.name) + ' ';
    if (column.kind == ColumnKind::kSingle) text += In(schema);
    text += PostgresType(column);
    if (column.kind == ColumnKind::kKey) text += " NOT NULL";
    separator = ",\n  ";
  }
  if (!table.key.empty()) {
    std::string key;
    ForEachName(table.key, [&](std::string_view name) {
      key += (key.empty() ? "" : ", ") + QuotedName(name);
    });
    text += ",\n  PRIMARY KEY (" + key + ")";
  }
  return text + ")";
}

std::string PostgresCreateIndex(const Table& table, const Index& index, std::string_view schema,
                                sql::Characters characters) {
  std::string columns;
  ForEachName(index.columns, [&](std::string_view name) {
    const std::string quoted = QuotedName(name);
    const bool text = table.Find(name)->kind == ColumnKind::kText;
    columns += columns.empty() ? "" : ", ";
    columns += text ? "(" + sql::PostgresFolded(quoted, characters) + ")" : quoted;
    // In the order of the dialect; else a report that asks for it sorts what the index has in
    // order.
    columns += " NULLS FIRST";
  });
  return "CREATE INDEX " + QuotedName(index.name) + " ON " + In(schema) + QuotedName(table.name) +
         " (" + columns + ")";
}

std::string PostgresCreateDomain(std::string_view schema) {
  return "DO $$ BEGIN CREATE DOMAIN " + In(schema) + std::string(postgres::kSingleMark) +
         " AS double precision; EXCEPTION WHEN duplicate_object THEN NULL; END $$";
}

std::string PostgresSchema() {
  std::string text = PostgresCreateDomain() + ";\n";
  for (const Table& table : Tables()) {
    text += PostgresCreateTable(table) + ";\n";
    for (const Index& index : table.indexes) text += PostgresCreateIndex(table, index) + ";\n";
  }
  return text;
}

}  // namespace pstolvane1::books
