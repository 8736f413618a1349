#include "session/engine/postgres/Schema.h"

#include <charconv>
#include <libpq-fe.h>
#include <utility>
#include <vector>

#include "session/sql/Names.h"

namespace pstolvane1::postgres {
namespace {

using sql::Type;

constexpr const char* kColumns =
    "SELECT c.relname, a.attname, coalesce(b.typname, t.typname),"
    " CASE WHEN b.oid IS NULL THEN '' ELSE t.typname END,"
    " CASE WHEN b.oid IS NULL THEN a.atttypmod ELSE t.typtypmod END"
    " FROM pg_class c JOIN pg_attribute a ON a.attrelid = c.oid JOIN pg_type t ON t.oid = "
    "a.atttypid"
    " LEFT JOIN pg_type b ON b.oid = nullif(t.typbasetype, 0)"
    " WHERE a.attnum > 0 AND NOT a.attisdropped AND c.relkind IN ('r', 'v', 'm', 'f', 'p')"
    " AND NOT c.relispartition AND c.relnamespace NOT IN"
    " ('pg_catalog'::regnamespace, 'information_schema'::regnamespace)"
    " AND pg_table_is_visible(c.oid) ORDER BY c.relname, c.oid, a.attnum";

// The server's types in the dialect, and how those are read that it keeps in another way.
struct Meaning {
  std::string_view name;
  Type type;
  std::string_view reading = "";
};
constexpr Meaning kMeanings[] = {
    {"bool", Type::kFlag},
    {"bit", Type::kFlag, "::int4::bool"},
    {"int2", Type::kWhole, "::int4"},
    {"int4", Type::kWhole},
    {"int8", Type::kBigWhole},
    {"numeric", Type::kMoney},
    {"money", Type::kMoney, "::numeric(19,4)"},
    // The number that was meant: 0.1, not the nearest 32-bit float as a 64-bit one.
    {"float4", Type::kSingle, "::text::float8"},
    {"float8", Type::kReal},
    {"date", Type::kDate},
    {"timestamp", Type::kDate},
    {"timestamptz", Type::kDate, "::timestamp"},
    {"varchar", Type::kText},
    {"text", Type::kText},
    {"bpchar", Type::kText, "::text"},
    {"name", Type::kText, "::text"},
    {"citext", Type::kText, "::text"},
};

// Where a modifier is told, it counts four more than it says.
constexpr int kModifierBase = 4;

void ReadNumeric(sql::CatalogColumn& column, int modifier) {
  if (modifier < kModifierBase) {
    column.reading = "::numeric(19,4)";
    return;
  }
  const int digits = ((modifier - kModifierBase) >> 16) & 0xFFFF;
  const int places = (modifier - kModifierBase) & 0x7FF;
  if (places <= 4) return;
  column.type = Type::kDecimal;
  column.digits = digits;
  column.places = places;
}

int WholeOf(const char* text) {
  int number = 0;
  const std::string_view digits(text);
  std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return number;
}

}  // namespace

std::optional<sql::CatalogColumn> ColumnOf(std::string_view name, std::string_view type,
                                           std::string_view domain, int modifier) {
  for (const Meaning& meaning : kMeanings) {
    if (meaning.name != type) continue;
    sql::CatalogColumn column;
    column.name = name;
    column.type = meaning.type;
    column.reading = meaning.reading;
    const bool sized = modifier >= kModifierBase;
    if (column.type == Type::kText && sized) column.size = modifier - kModifierBase;
    if (type == "bit" && modifier != 1) return std::nullopt;
    if (type == "numeric") ReadNumeric(column, modifier);
    if (type == "float8" && sql::SameName(domain, kSingleDomain)) column.type = Type::kSingle;
    column.date_has_time = column.type == Type::kDate && type != "date";
    return column;
  }
  return std::nullopt;
}

sql::Catalog ReadCatalog(Database& database, Watch& watch) {
  const NativeResult rows = database.Run(kColumns, watch);
  std::vector<sql::CatalogTable> tables;
  for (int row = 0; row < PQntuples(rows.get()); ++row) {
    const auto cell = [&](int column) { return PQgetvalue(rows.get(), row, column); };
    if (tables.empty() || tables.back().name != cell(0)) tables.push_back({cell(0), {}});
    const auto column = ColumnOf(cell(1), cell(2), cell(3), WholeOf(cell(4)));
    if (column) tables.back().columns.push_back(*column);
  }
  return sql::Catalog(std::move(tables));
}

}  // namespace pstolvane1::postgres
