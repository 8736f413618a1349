// Books on a server, through the front end: the server holds its columns to their types.
#include <libpq-fe.h>
#include <utility>

#include "session/books/Reader.h"
#include "session/books/Schema.h"
#include "session/data/Error.h"
#include "session/engine/Engines.h"
#include "session/engine/postgres/Database.h"
#include "session/engine/postgres/Schema.h"
#include "session/sql/EngineText.h"

namespace pstolvane1::books {
namespace {

constexpr std::chrono::milliseconds kLimit = std::chrono::seconds(30);
constexpr std::chrono::milliseconds kNoLimit{0};

// The first table or view of that name. No name holds a quote.
std::string Named(const Table& table) {
  const std::string schemas = postgres::kBooksSchemas;
  return "(SELECT c.oid FROM pg_class c JOIN pg_namespace n ON n.oid = c.relnamespace WHERE "
         "lower(c.relname) = '" +
         InSmallLetters(table.name) +
         "' AND c.relkind IN ('r', 'v', 'm', 'f', 'p') AND n.nspname = ANY (" + schemas +
         ") ORDER BY array_position(" + schemas + ", n.nspname), c.relname LIMIT 1)";
}

std::optional<std::string> CellOf(const Chunk& chunk, DataType type, std::size_t at,
                                  std::size_t row) {
  if (chunk.IsNull(at, row)) return std::nullopt;
  switch (type) {
    case adInteger:
      return std::to_string(chunk.Get<std::int32_t>(at, row));
    case adBigInt:
      return std::to_string(chunk.Get<std::int64_t>(at, row));
    default:
      return std::string(chunk.Text(at, row));
  }
}

class ServerReader final : public Reader {
 public:
  explicit ServerReader(const std::string& connection_string)
      : settings_(connection_string),
        books_(OpenDatabase(connection_string, kLimit)),
        state_(books_->TakeSnapshot(kLimit)),
        watch_(kNoLimit),
        catalog_(settings_, opening_) {}

  [[nodiscard]] std::vector<Row> Select(const std::string& select) override {
    const std::shared_ptr<Cursor> cursor = state_->Run(select, kNoLimit);
    std::vector<Row> rows;
    while (true) {
      Chunk chunk(cursor->Columns());
      const std::size_t read = cursor->Read(chunk);
      for (std::size_t row = 0; row < read; ++row) {
        Row& cells = rows.emplace_back();
        for (std::size_t at = 0; at < cursor->Columns().size(); ++at) {
          cells.push_back(CellOf(chunk, cursor->Columns()[at].type, at, row));
        }
      }
      if (!chunk.Full()) return rows;
    }
  }
  [[nodiscard]] bool Understands(const std::string& select) override {
    try {
      return !books_->Describe(select).empty();
    } catch (const Error& error) {
      if (error.Number() != ErrorNumber::kQueryRefused) throw;
      return false;
    }
  }
  // A part of a table is no table of its own.
  [[nodiscard]] std::vector<std::string> TableNames() override {
    const postgres::NativeResult rows = catalog_.Run(
        std::string("SELECT DISTINCT c.relname FROM pg_class c JOIN pg_namespace n ON n.oid = "
                    "c.relnamespace WHERE c.relkind IN ('r', 'p', 'f') AND n.nspname = ANY (") +
            postgres::kBooksSchemas +
            ") AND NOT EXISTS (SELECT FROM pg_inherits p WHERE p.inhrelid = c.oid) ORDER BY 1",
        watch_);
    std::vector<std::string> names;
    names.reserve(static_cast<std::size_t>(PQntuples(rows.get())));
    for (int row = 0; row < PQntuples(rows.get()); ++row) {
      names.emplace_back(PQgetvalue(rows.get(), row, 0));
    }
    return names;
  }
  [[nodiscard]] std::vector<DeclaredColumn> ColumnsIn(const Table& table) override {
    const postgres::NativeResult rows = catalog_.Run(
        "SELECT a.attname, format_type(a.atttypid, a.atttypmod), coalesce(b.typname, t.typname),"
        " CASE WHEN b.oid IS NULL THEN coalesce(col_description(a.attrelid, a.attnum), '') ELSE"
        " t.typname END,"
        " CASE WHEN b.oid IS NULL THEN a.atttypmod ELSE t.typtypmod END"
        " FROM pg_attribute a JOIN pg_type t ON t.oid = a.atttypid"
        " LEFT JOIN pg_type b ON b.oid = nullif(t.typbasetype, 0)"
        " WHERE a.attnum > 0 AND NOT a.attisdropped AND a.attrelid = " +
            Named(table) + " ORDER BY a.attnum",
        watch_);
    std::vector<DeclaredColumn> columns;
    for (int row = 0; row < PQntuples(rows.get()); ++row) {
      const auto cell = [&](int at) { return std::string(PQgetvalue(rows.get(), row, at)); };
      const auto read = postgres::ColumnOf(cell(0), cell(2), cell(3), std::stoi(cell(4)));
      columns.push_back({cell(0), cell(1), read ? std::optional(read->type) : std::nullopt});
    }
    return columns;
  }
  [[nodiscard]] bool IsTable(const Table& table) override {
    const postgres::NativeResult rows = catalog_.Run(
        "SELECT 1 FROM pg_class c WHERE c.oid = " + Named(table) +
            " AND c.relkind IN ('r', 'p') AND NOT EXISTS (SELECT FROM pg_inherits p JOIN pg_class f"
            " ON f.oid = p.inhrelid WHERE p.inhparent = c.oid AND f.relkind = 'f')",
        watch_);
    return PQntuples(rows.get()) > 0;
  }
  // A text is indexed by what the front end compares, told as "~name". A column's option is 2 for
  // ascending with Null first, and 1 for the same from the other end.
  [[nodiscard]] std::vector<DeclaredIndex> IndexesIn(const Table& table) override {
    const bool all = catalog_.TextCharacters() == sql::Characters::kAll;
    const postgres::NativeResult rows = catalog_.Run(
        "SELECT (SELECT relname FROM pg_class WHERE oid = i.indexrelid),"
        " string_agg(i.indoption[k.place - 1]::text, '' ORDER BY k.place),"
        " string_agg(CASE WHEN k.attnum > 0 THEN lower(a.attname) ELSE regexp_replace("
        "lower(pg_get_indexdef(i.indexrelid, k.place::int, true)),"
        " '^" +
            std::string(all ? "\\(?\\s*case\\s+when octet_length" : "lower\\(\\(?rtrim") +
            "\\(\\(?\"?([^\")]+).*$', '~\\1') END, ',' ORDER BY k.place)"
            " FROM pg_index i CROSS JOIN LATERAL unnest(i.indkey::int2[]) WITH ORDINALITY AS"
            " k(attnum, place) LEFT JOIN pg_attribute a ON a.attrelid = i.indrelid AND a.attnum ="
            " k.attnum WHERE i.indpred IS NULL AND i.indrelid = " +
            Named(table) + " GROUP BY i.indexrelid",
        watch_);
    std::vector<DeclaredIndex> indexes;
    for (int row = 0; row < PQntuples(rows.get()); ++row) {
      const auto cell = [&](int at) { return PQgetvalue(rows.get(), row, at); };
      const std::string_view options = cell(1);
      const bool ordered = options.starts_with('1') || options.starts_with('2');
      const std::size_t same = std::min(options.find_first_not_of(options[0]), options.size());
      indexes.push_back({cell(0), cell(2), ordered ? same : 0});
    }
    return indexes;
  }
  [[nodiscard]] std::string Serving(const Table& table, const Index& index) const override {
    std::string serving;
    std::string_view names = index.columns;
    while (!names.empty()) {
      const std::size_t comma = std::min(names.find(','), names.size());
      const std::string_view name = names.substr(0, comma);
      const bool text = table.Find(name)->kind == ColumnKind::kText;
      serving += (serving.empty() ? "" : ",") + std::string(text ? "~" : "") + InSmallLetters(name);
      names.remove_prefix(std::min(names.size(), comma + 2));
    }
    return serving;
  }
  [[nodiscard]] std::vector<std::string> Damage() override { return {}; }
  [[nodiscard]] bool KeepsAnyValue() const override { return false; }
  [[nodiscard]] std::string MonthOf(const std::string& date) const override {
    return "Year(" + date + ") * 12 + Month(" + date + ") - 1";
  }
  [[nodiscard]] std::string CreateTable(const Table& table) const override {
    return PostgresCreateTable(table) + ";";
  }
  [[nodiscard]] std::string MakeIndex(const Table& table, const Index& index) override {
    const std::string name(index.name);
    const postgres::NativeResult taken = catalog_.Run(
        "SELECT 1 FROM pg_index i JOIN pg_class c ON c.oid = i.indexrelid WHERE c.relname = '" +
            name + "' AND i.indrelid = " + Named(table),
        watch_);
    return (PQntuples(taken.get()) > 0 ? "DROP INDEX " + sql::QuotedName(name) + "; "
                                       : std::string()) +
           PostgresCreateIndex(table, index, {}, catalog_.TextCharacters()) + ";";
  }
  [[nodiscard]] std::string AddColumn(const Table& table, const Column& column) const override {
    return "ALTER TABLE " + sql::QuotedName(table.name) + " ADD COLUMN " +
           sql::QuotedName(column.name) + " " + PostgresType(column) + ";";
  }
  [[nodiscard]] std::string TypeOf(const Column& column) const override {
    return PostgresType(column);
  }
  [[nodiscard]] const std::string& Name() const override { return settings_.Name(); }

 private:
  const postgres::Settings settings_;
  const std::shared_ptr<Provider> books_;
  const std::shared_ptr<Snapshot> state_;
  Watch opening_{kLimit};
  Watch watch_;
  postgres::Database catalog_;
};

}  // namespace

std::unique_ptr<Reader> ReadServer(const std::string& connection_string) {
  try {
    return std::make_unique<ServerReader>(connection_string);
  } catch (const Error& error) {
    throw Error(ErrorNumber::kConnection, error.Description());
  }
}

}  // namespace pstolvane1::books
