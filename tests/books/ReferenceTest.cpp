// docs/books.md tells of every table and column of the reference schema, and its examples are
// books.
#include <algorithm>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

#include "session/books/CheckBooks.h"
#include "session/books/ImportBooks.h"
#include "session/books/Schema.h"
#include "tests/SourcePath.h"
#include "tests/books/BooksOnDisk.h"

namespace pstolvane1::books {
namespace {

struct DescribedColumn {
  std::string name, holds, kind, needed, values, read_by, example;
};

struct DescribedTable {
  std::string name;
  std::vector<DescribedColumn> columns;
};

// "| a | b |" as its cells.
std::vector<std::string> CellsOf(const std::string& line) {
  std::vector<std::string> cells;
  std::istringstream parts(line.substr(1));
  for (std::string cell; std::getline(parts, cell, '|');) {
    const auto first = cell.find_first_not_of(' ');
    cells.push_back(first == std::string::npos
                        ? ""
                        : cell.substr(first, cell.find_last_not_of(' ') - first + 1));
  }
  return cells;
}

std::vector<DescribedTable> Described() {
  std::vector<DescribedTable> tables;
  std::ifstream page(SourcePath("docs/books.md"));
  bool reference = false;
  for (std::string line; std::getline(page, line);) {
    if (line.starts_with("## ")) reference = line == "## Every column";
    if (!reference) continue;
    if (line.starts_with("### ")) tables.push_back({line.substr(4), {}});
    if (!line.starts_with("| `")) continue;
    const std::vector<std::string> cells = CellsOf(line);
    if (cells.size() != 7) {
      ADD_FAILURE() << line;
      continue;
    }
    tables.back().columns.push_back({cells[0].substr(1, cells[0].size() - 2), cells[1], cells[2],
                                     cells[3], cells[4], cells[5], cells[6]});
  }
  return tables;
}

std::string KindOf(const Column& column) {
  switch (column.kind) {
    case ColumnKind::kKey:
      return "key";
    case ColumnKind::kWhole:
      return "whole number";
    case ColumnKind::kFlag:
      return "flag";
    case ColumnKind::kSingle:
      return "quantity";
    case ColumnKind::kMoney:
      return "money";
    case ColumnKind::kDate:
      return "date";
    case ColumnKind::kDateTime:
      return "date and time";
    case ColumnKind::kText:
      break;
  }
  return "text, " + std::to_string(column.size);
}

TEST(Reference, DescribesEveryTableAndColumnInTheirOrder) {
  const std::vector<DescribedTable> tables = Described();
  ASSERT_EQ(tables.size(), Tables().size());
  for (std::size_t i = 0; i < tables.size(); ++i) {
    const Table& table = Tables()[i];
    EXPECT_EQ(tables[i].name, table.name);
    ASSERT_EQ(tables[i].columns.size(), table.columns.size()) << table.name;
    for (std::size_t j = 0; j < table.columns.size(); ++j) {
      const DescribedColumn& told = tables[i].columns[j];
      SCOPED_TRACE(tables[i].name + "." + told.name);
      EXPECT_EQ(told.name, table.columns[j].name);
      EXPECT_EQ(told.kind, KindOf(table.columns[j]));
      EXPECT_NE(told.holds, "");
      EXPECT_THAT(told.needed, testing::AnyOf("yes", ""));
      EXPECT_TRUE(told.needed == "yes" || table.columns[j].kind != ColumnKind::kKey);
      EXPECT_TRUE(told.needed.empty() || !told.example.empty());
    }
  }
}

TEST(Reference, NamesOnlyTablesThatAreThere) {
  for (const DescribedTable& table : Described()) {
    for (const DescribedColumn& column : table.columns) {
      if (!column.values.starts_with("`")) continue;
      const std::string name = column.values.substr(1, column.values.find('`', 1) - 1);
      const bool is_column = std::ranges::any_of(
          table.columns, [&](const DescribedColumn& other) { return other.name == name; });
      const bool is_value = column.name == "RefType";
      EXPECT_TRUE(is_column || is_value || FindTable(name) != nullptr)
          << table.name << "." << column.name;
    }
  }
}

TEST(Reference, ItsExamplesAreBooksInWhichNothingIsOdd) {
  const test::Folder rows, books;
  for (const DescribedTable& table : Described()) {
    std::string head, row;
    for (const DescribedColumn& column : table.columns) {
      const std::string comma = head.empty() ? "" : ",";
      head += comma + column.name;
      row += comma + (column.example.empty() ? "" : "\"" + column.example + "\"");
    }
    rows.Write(table.name + ".csv", head + "\n" + row + "\n");
  }
  const std::string file = books.File("examples.db");
  EXPECT_EQ(ImportBooks(file, rows.Path()).size(), Tables().size());
  for (const Finding& finding : CheckBooks(file)) ADD_FAILURE() << finding.sentence;
}

}  // namespace
}  // namespace pstolvane1::books
