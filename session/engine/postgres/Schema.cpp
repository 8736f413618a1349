#include "session/engine/postgres/Schema.h"

#include <charconv>
#include <libpq-fe.h>
#include <map>
#include <utility>
#include <vector>

#include "session/sql/Names.h"

namespace pstolvane1::postgres {
namespace {

using sql::Type;

constexpr const char* kColumns =
    "SELECT c.relname, a.attname, coalesce(b.typname, t.typname),"
    " CASE WHEN b.oid IS NULL THEN coalesce(col_description(c.oid, a.attnum), '') ELSE t.typname "
    "END,"
    " CASE WHEN b.oid IS NULL THEN a.atttypmod ELSE t.typtypmod END,"
    " array_position(i.indkey::int2[], a.attnum), a.attnotnull, c.relkind,"
    " coalesce(i.indisprimary, false), n.nspname, format_type(a.atttypid, a.atttypmod)"
    " FROM unnest(current_setting('pstolvane1.schemas')::name[]) WITH ORDINALITY AS s(name, place)"
    " JOIN pg_namespace n ON n.nspname = s.name JOIN pg_class c ON c.relnamespace = n.oid"
    " JOIN pg_attribute a ON a.attrelid = c.oid JOIN pg_type t ON t.oid = a.atttypid"
    " LEFT JOIN pg_type b ON b.oid = nullif(t.typbasetype, 0)"
    " LEFT JOIN LATERAL (SELECT x.indkey, x.indisprimary FROM pg_index x WHERE x.indrelid = c.oid"
    " AND x.indexprs IS NULL AND x.indpred IS NULL ORDER BY x.indisprimary DESC, x.indexrelid LIMIT"
    " 1) i ON true"
    " WHERE a.attnum > 0 AND NOT a.attisdropped AND c.relkind IN ('r', 'v', 'm', 'f', 'p')"
    " AND NOT c.relispartition AND n.nspname NOT IN ('pg_catalog', 'information_schema')"
    " ORDER BY s.place, c.relname, a.attnum";

// The server's types in the dialect, and how those are read that it keeps in another way.
struct Meaning {
  std::string_view name;
  Type type;
  std::string_view reading = {};
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
  if (places == 4) return;
  column.type = Type::kDecimal;
  column.digits = digits;
  column.places = places;
}

int WholeOf(std::string_view digits) {
  int number = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return number;
}

}  // namespace

std::optional<sql::CatalogColumn> ColumnOf(std::string_view name, std::string_view type,
                                           std::string_view mark, int modifier) {
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
    if (type == "float8" && sql::SameName(mark, kSingleMark)) column.type = Type::kSingle;
    column.date_has_time = column.type == Type::kDate && type != "date";
    return column;
  }
  return std::nullopt;
}

sql::Characters TextCharactersOf(const pg_conn* session) {
  const char* encoding = PQparameterStatus(session, "server_encoding");
  const bool all = encoding != nullptr && std::string_view(encoding) == "UTF8";
  return all ? sql::Characters::kAll : sql::Characters::kSome;
}

namespace {

// A table of the catalog while its columns are read.
struct Described {
  sql::CatalogTable table;
  bool is_key = false;               // the index is the primary key
  bool has_places = false;           // its rows have a place in a file of the server
  std::map<int, std::string> index;  // of its key or its first index, by their place in it
  std::vector<std::string> never_null;

  // By the primary key; or by what is never Null, as where tables that are spread over servers can
  // have no key; or else by the first index, and as the rows were added.
  [[nodiscard]] std::vector<std::string> RowOrder() const {
    if (!is_key && !never_null.empty()) return never_null;
    std::vector<std::string> order;
    for (const auto& [place, name] : index) order.push_back(name);
    if (!is_key && has_places) order.emplace_back("ctid");
    return order;
  }
};

}  // namespace

sql::Catalog ReadCatalog(Database& database, Watch& watch) {
  const NativeResult rows = database.Run(kColumns, watch);
  std::vector<Described> described;
  for (int row = 0; row < PQntuples(rows.get()); ++row) {
    const auto cell = [&](int column) {
      return std::string_view(PQgetvalue(rows.get(), row, column));
    };
    if (described.empty() || described.back().table.name != cell(0) ||
        described.back().table.schema != cell(9)) {
      described.push_back({.table = {.name = std::string(cell(0)),
                                     .columns = {},
                                     .row_order = {},
                                     .unread = {},
                                     .schema = std::string(cell(9))},
                           .is_key = cell(8) == "t",
                           .has_places = cell(7) == "r" || cell(7) == "m",
                           .index = {},
                           .never_null = {}});
    }
    Described& table = described.back();
    const auto column = ColumnOf(cell(1), cell(2), cell(3), WholeOf(cell(4)));
    if (column) {
      table.table.columns.push_back(*column);
    } else {
      table.table.unread.emplace_back(cell(1), cell(10));
    }
    if (column && !cell(5).empty()) table.index.emplace(WholeOf(cell(5)), cell(1));
    if (column && cell(6) == "t") table.never_null.emplace_back(cell(1));
  }
  std::vector<sql::CatalogTable> tables;
  for (Described& one : described) {
    one.table.row_order = one.RowOrder();
    tables.push_back(std::move(one.table));
  }
  return sql::Catalog(std::move(tables), database.TextCharacters());
}

}  // namespace pstolvane1::postgres
