#include "ServerBooks.h"

#include <stdexcept>

#include "session/books/Schema.h"
#include "session/sql/EngineText.h"

namespace pstolvane1::golden {
namespace {

const books::Column& ColumnOf(const TextTable& table, const std::string& name) {
  const books::Table* const known = books::FindTable(table.name);
  if (known == nullptr) throw std::runtime_error("the books have no table " + table.name);
  const books::Column* const column = known->Find(name);
  if (column == nullptr) throw std::runtime_error(table.name + " has no column " + name);
  return *column;
}

// The cell as a text, which the server reads as its column's type.
std::string LiteralOf(const std::string& cell, const books::Column& column) {
  if (cell.empty()) return "NULL";
  const std::string text = TextOf(cell);
  if (column.kind == books::ColumnKind::kFlag) return text == "0" ? "FALSE" : "TRUE";
  return sql::QuotedText(text);
}

std::string Inserted(const TextTable& table) {
  if (table.rows.empty()) return "";
  std::string names;
  for (const std::string& name : table.head) {
    names += (names.empty() ? "" : ", ") + sql::QuotedName(ColumnOf(table, name).name);
  }
  std::string rows;
  for (const auto& row : table.rows) {
    std::string cells;
    for (std::size_t i = 0; i < row.size(); ++i) {
      cells += (i == 0 ? "" : ", ") + LiteralOf(row[i], ColumnOf(table, table.head[i]));
    }
    rows += (rows.empty() ? "(" : ", (") + cells + ")";
  }
  return "INSERT INTO " + sql::QuotedName(books::FindTable(table.name)->name) + " (" + names +
         ") VALUES " + rows + ";";
}

}  // namespace

void CaseRows::Hold(const std::vector<TextTable>& tables) {
  if (tables == held_) return;
  std::string statements;
  for (const TextTable& table : held_) {
    statements += "DELETE FROM " + sql::QuotedName(books::FindTable(table.name)->name) + ";";
  }
  for (const TextTable& table : tables) statements += Inserted(table);
  session_.Run(statements);
  held_ = tables;
}

ServerBooks::ServerBooks()
    : scratch_(books::PostgresSchema()), rows_(scratch_.ConnectionString()) {}

}  // namespace pstolvane1::golden
