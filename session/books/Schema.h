// The books' tables: names, columns, keys and indexes, as the reports read them.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "session/sql/Catalog.h"

namespace pstolvane1::books {

enum class ColumnKind {
  kKey,       // INTEGER NOT NULL
  kWhole,     // INTEGER
  kFlag,      // BIT (boolean on servers that have it)
  kSingle,    // REAL: a quantity
  kMoney,     // DECIMAL(19,4): an amount or a rate
  kDate,      // DATE, without a time of day
  kDateTime,  // DATETIME
  kText,      // VARCHAR(n), ignores case
};

struct Column {
  std::string_view name;
  ColumnKind kind;
  int size = 0;  // characters of kText, otherwise 0
};

// Columns in order, as "Item_id, Godown_id, Batch_id".
struct Index {
  std::string_view name;
  std::string_view columns;
};

// Every column but those of kind kKey takes Null.
struct Table {
  std::string_view name;
  std::string_view key;  // the primary key's columns; empty where there is none
  std::span<const Column> columns;
  std::span<const Index> indexes;

  [[nodiscard]] const Column* Find(std::string_view column) const;  // any case; null if absent
};

// Every table of the reference schema, masters before what refers to them.
[[nodiscard]] std::span<const Table> Tables();
[[nodiscard]] const Table* FindTable(std::string_view name);  // any case; null if absent

// The column's type as the books declare it on SQLite: "DECIMAL(19,4)".
[[nodiscard]] std::string SqliteType(const Column& column);
// One statement, without a terminator.
[[nodiscard]] std::string SqliteCreateTable(const Table& table);
[[nodiscard]] std::string SqliteCreateIndex(const Table& table, const Index& index);

// The statements that make empty books on SQLite, indexes included, in order, each ended by ";".
[[nodiscard]] std::string SqliteSchema();

// The same for PostgreSQL. Names are quoted as they are spelled here; quantities are of the domain
// kSingleMark, and an index on a text serves the comparisons that the front end writes.
[[nodiscard]] std::string PostgresType(const Column& column);
// In that schema, or in the first of the search_path where none is named.
[[nodiscard]] std::string PostgresCreateTable(const Table& table, std::string_view schema = {});
[[nodiscard]] std::string PostgresCreateIndex(const Table& table, const Index& index,
                                              std::string_view schema = {},
                                              sql::Characters characters = sql::Characters::kAll);
// What has to be there before the tables are made; may be run again.
[[nodiscard]] std::string PostgresCreateDomain(std::string_view schema = {});
[[nodiscard]] std::string PostgresSchema();

}  // namespace pstolvane1::books
