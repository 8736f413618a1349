// The books' tables: names, columns, keys and indexes, as the reports read them.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace pstolvane1::books {

enum class ColumnKind {
  kKey,     // INTEGER, NOT NULL
  kWhole,   // INTEGER
  kFlag,    // BIT (boolean on servers that have it)
  kSingle,  // REAL: a quantity
  kMoney,   // DECIMAL(19,4): an amount or a rate
  kDate,    // DATE
  kText,    // VARCHAR(n), ignores case
};

struct Column {
  std::string_view name;
  ColumnKind kind;
  int size = 0;  // of kText
};

struct Index {
  std::string_view name;
  std::string_view columns;  // "Item_id, Godown_id, Batch_id"
};

struct Table {
  std::string_view name;
  std::string_view key;  // the primary key's columns; empty where there is none
  std::span<const Column> columns;
  std::span<const Index> indexes;
};

// Every table of the reference schema, masters before what refers to them.
[[nodiscard]] std::span<const Table> Tables();

// The statements that make empty books on SQLite, indexes included, in order.
[[nodiscard]] std::string SqliteSchema();

}  // namespace pstolvane1::books
