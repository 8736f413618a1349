// The small tables that random SELECTs run over.
#pragma once

#include <string>
#include <vector>

#include "tests/sql/model/Value.h"

namespace pstolvane1::sql::model {

using Row = std::vector<Value>;

struct Column {
  std::string table;  // the name that qualifies it; empty for a column of a result
  std::string name;
  Kind kind;
};

struct Relation {
  std::vector<Column> columns;
  std::vector<Row> rows;
};

struct Table {
  std::string name;
  std::vector<std::string> declarations;  // of the columns, in their order: "VARCHAR(10)"
  Relation content;
};

// Three tables with every type, with Nulls, texts in mixed case and with trailing blanks, negative
// numbers, dates at the ends of years, and keys that do and do not find each other. Money has at
// most four places, singles and reals are quarters, so that their sums are exact.
[[nodiscard]] const std::vector<Table>& SmallTables();

// The statements that make them on PostgreSQL.
[[nodiscard]] std::string PostgresScript(const std::vector<Table>& tables);
// Makes an SQLite file that holds them; it must not exist.
void WriteSqliteFile(const std::string& path, const std::vector<Table>& tables);

}  // namespace pstolvane1::sql::model
