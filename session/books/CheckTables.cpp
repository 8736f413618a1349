#include <algorithm>

#include "session/books/Checks.h"
#include "session/books/Schema.h"
#include "session/sql/Catalog.h"

namespace pstolvane1::books {
namespace {

const DeclaredColumn* Find(const std::vector<DeclaredColumn>& columns, std::string_view name) {
  const auto found = std::ranges::find_if(columns, [&](const DeclaredColumn& one) {
    return InSmallLetters(one.name) == InSmallLetters(name);
  });
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

void CheckType(const Reader& books, const Table& table, const Column& column,
               const DeclaredColumn& declared, Findings& findings) {
  if (declared.type && Carries(*declared.type, column.kind)) return;
  findings.push_back({Severity::kError,
                      "The column " + std::string(table.name) + "." + declared.name +
                          " is declared \"" + declared.declared + "\", where the reports need " +
                          std::string(Wanted(column.kind)) + " (" + books.TypeOf(column) + ").",
                      ""});
}

// Why none of the present indexes serves as this one would; "" when one does.
std::string ProblemOf(const Table& table, const Index& index,
                      const std::vector<DeclaredIndex>& present, const std::string& wanted) {
  const auto count = static_cast<std::size_t>(std::ranges::count(wanted, ',')) + 1;
  const DeclaredIndex* other_order = nullptr;
  for (const DeclaredIndex& one : present) {
    if (!(one.columns + ",").starts_with(wanted + ",")) continue;
    if (one.in_order >= count) return {};
    other_order = &one;
  }
  if (other_order == nullptr) {
    return "No index of " + std::string(table.name) + " begins with " + std::string(index.columns) +
           ".";
  }
  return "The index " + other_order->name + " of " + std::string(table.name) +
         " does not have Null first in each column, so that reports sort the rows that it could "
         "give in order.";
}

}  // namespace

bool CheckTables(Reader& books, Findings& findings) {
  bool complete = true;
  for (const Table& table : Tables()) {
    const auto columns = books.ColumnsIn(table);
    if (columns.empty()) {
      complete = false;
      findings.push_back({Severity::kError, "The table " + std::string(table.name) + " is missing.",
                          books.CreateTable(table)});
      continue;
    }
    for (const Column& column : table.columns) {
      if (const DeclaredColumn* declared = Find(columns, column.name)) {
        CheckType(books, table, column, *declared, findings);
        continue;
      }
      complete = false;
      const bool key = column.kind == ColumnKind::kKey;
      findings.push_back({Severity::kError,
                          "The column " + std::string(table.name) + "." + std::string(column.name) +
                              " is missing.",
                          key ? "" : books.AddColumn(table, column)});
    }
  }
  return complete;
}

void CheckIndexes(Reader& books, Findings& findings) {
  for (const Table& table : Tables()) {
    if (!books.IsTable(table)) continue;
    const auto present = books.IndexesIn(table);
    for (const Index& index : table.indexes) {
      std::string problem = ProblemOf(table, index, present, books.Serving(table, index));
      if (problem.empty() || !books.Understands("SELECT " + std::string(index.columns) + " FROM " +
                                                std::string(table.name))) {
        continue;
      }
      findings.push_back({Severity::kHint, std::move(problem), books.MakeIndex(table, index)});
    }
  }
}

}  // namespace pstolvane1::books
