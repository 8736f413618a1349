// What a database says of its tables: the front end types every expression from it.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace pstolvane1::sql {

// The types of the dialect, in the order in which they rank, low to high: of two values that are
// combined, the lower one is converted to the higher one. kNull is the type of the word NULL alone.
enum class Type {
  kNull,
  kText,
  kFlag,      // BIT
  kWhole,     // 32-bit
  kBigWhole,  // 64-bit
  kMoney,     // four decimals
  kDecimal,   // an exact decimal that is no money, as the literal 0.5
  kSingle,    // 32-bit float
  kReal,      // 64-bit float
  kDate,      // with or without a time of day
};

[[nodiscard]] std::string_view NameOf(Type type);  // "text", "whole number", "money" ...

struct CatalogColumn {
  std::string name;
  Type type = Type::kText;
  int size = 0;                // characters of a text column; 0 where there is no limit
  int digits = 0;              // of a decimal column, before and behind the point together
  int places = 0;              // of a decimal column, behind the point
  bool date_has_time = false;  // of a date column: declared with a time of day
  // What an engine writes behind the column's name to read it as its type, "::text"; empty where it
  // reads so by itself.
  std::string reading = {};
};

struct CatalogTable {
  std::string name;
  std::vector<CatalogColumn> columns;
  // What an engine orders rows by that nothing else orders, as its key; empty where it needs none.
  std::vector<std::string> row_order = {};
  // Columns that the texts cannot name, with the types for which the dialect has no meaning.
  std::vector<std::pair<std::string, std::string>> unread = {};
  // Where an engine finds it; empty where the name alone is enough.
  std::string schema = {};
  bool is_view = false;

  [[nodiscard]] const CatalogColumn* Find(std::string_view column) const;  // any case
  // The type of a column that is not read; empty when there is no such column.
  [[nodiscard]] std::string_view UnreadType(std::string_view column) const;
};

// The characters that the texts of a database may hold: all of Unicode, or those of an older
// encoding.
enum class Characters { kAll, kSome };

// Tables and views that the texts may name; names ignore case. Immutable once made, so that threads
// can share it.
class Catalog {
 public:
  Catalog() = default;
  explicit Catalog(std::vector<CatalogTable> tables, Characters characters = Characters::kAll);
  // Null when there is none.
  [[nodiscard]] const CatalogTable* Find(std::string_view table) const;
  [[nodiscard]] const std::vector<CatalogTable>& Tables() const { return tables_; }
  [[nodiscard]] Characters TextCharacters() const { return characters_; }

 private:
  std::vector<CatalogTable> tables_;  // in the order of their folded names
  Characters characters_ = Characters::kAll;
};

// The dialect's type of a column declared as "DECIMAL(19,4)", "BIT", "int", "varchar(50)",
// "double precision", ...; empty for one that has no such meaning (a blob).
[[nodiscard]] std::optional<CatalogColumn> ColumnOfDeclaration(std::string_view name,
                                                               std::string_view declared_type);

}  // namespace pstolvane1::sql
