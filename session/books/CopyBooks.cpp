#include "session/books/CopyBooks.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <memory>
#include <optional>

#include "session/books/BooksFile.h"
#include "session/books/Reader.h"
#include "session/books/Schema.h"
#include "session/books/ServerWriter.h"
#include "session/books/Writer.h"
#include "session/data/Error.h"
#include "session/data/Provider.h"
#include "session/engine/ConnectionString.h"
#include "session/engine/Engines.h"
#include "session/sql/EngineText.h"
#include "session/sql/Names.h"

namespace pstolvane1::books {
namespace {

constexpr std::chrono::milliseconds kNoLimit{0};

// The type in which a column is read, so that nothing of it is lost on the way.
std::string_view ReadAs(ColumnKind kind) {
  switch (kind) {
    case ColumnKind::kKey:
    case ColumnKind::kWhole:
      return "int";
    case ColumnKind::kFlag:
      return "bit";
    case ColumnKind::kSingle:
      return "float";
    case ColumnKind::kMoney:
      return "money";
    default:
      return "";
  }
}

// A table's rows as they are read: the columns that it has of the reference schema.
struct Source {
  const Table* table;
  std::vector<const Column*> columns;
  std::string select;
};

std::optional<Source> SourceOf(Provider& books, const Table& table) {
  std::vector<ColumnInfo> present;
  try {
    present = books.Describe("select * from [" + std::string(table.name) + "]");
  } catch (const Error& error) {
    if (error.Number() != ErrorNumber::kQueryRefused) throw;
    return std::nullopt;
  }
  Source source{&table, {}, {}};
  for (const Column& column : table.columns) {
    const bool there = std::ranges::any_of(
        present, [&](const ColumnInfo& one) { return sql::SameName(one.name, column.name); });
    if (!there) continue;
    const std::string name = "[" + std::string(column.name) + "]";
    const std::string_view type = ReadAs(column.kind);
    source.select += source.columns.empty() ? "select " : ", ";
    source.select += type.empty() ? name : "cast(" + name + " as " + std::string(type) + ")";
    source.select += " as " + name;
    source.columns.push_back(&column);
  }
  source.select += " from [" + std::string(table.name) + "]";
  return source;
}

// Calls take with every chunk of the rows; gives how many rows there are.
template <typename Take>
std::int64_t ReadRows(Snapshot& state, const Source& source, const CopyProgress& progress,
                      const Take& take) {
  const std::shared_ptr<Cursor> cursor = state.Run(source.select, kNoLimit);
  std::int64_t rows = 0;
  while (true) {
    Chunk chunk(cursor->Columns());
    const std::size_t read = cursor->Read(chunk);
    if (progress) progress(source.table->name);
    rows += static_cast<std::int64_t>(read);
    if (read > 0) take(chunk);
    if (!chunk.Full()) return rows;
  }
}

// --- Into a file

void BindCell(const Chunk& chunk, std::size_t at, std::size_t row, ColumnKind kind,
              Statement& insert) {
  const int place = static_cast<int>(at) + 1;
  if (chunk.IsNull(at, row)) return insert.Bind(place, std::nullopt);
  switch (kind) {
    case ColumnKind::kKey:
    case ColumnKind::kWhole:
      return insert.Bind(place, chunk.Get<std::int32_t>(at, row));
    case ColumnKind::kFlag:
      return insert.Bind(place, chunk.Get<std::int16_t>(at, row) != 0 ? 1 : 0);
    case ColumnKind::kSingle:
      return insert.Bind(place, chunk.Get<double>(at, row));
    case ColumnKind::kMoney:
      return insert.Bind(place, Currency::FromTenThousandths(chunk.Get<std::int64_t>(at, row)));
    case ColumnKind::kDate:
    case ColumnKind::kDateTime:
      return insert.BindCopy(place, Date(chunk.Get<double>(at, row)).ToIso());
    case ColumnKind::kText:
      return insert.Bind(place, chunk.Text(at, row));
  }
}

std::string Names(const Source& source, bool quoted) {
  std::string names;
  for (const Column* column : source.columns) {
    if (!names.empty()) names += ", ";
    names += quoted ? sql::QuotedName(column->name) : std::string(column->name);
  }
  return names;
}

std::int64_t CopyTable(Snapshot& state, const Source& source, Writer& writer,
                       const CopyProgress& progress) {
  Statement insert(writer, source.table->name, Names(source, false));
  return ReadRows(state, source, progress, [&](const Chunk& chunk) {
    for (std::size_t row = 0; row < chunk.RowCount(); ++row) {
      for (std::size_t at = 0; at < source.columns.size(); ++at) {
        BindCell(chunk, at, row, source.columns[at]->kind, insert);
      }
      insert.Step(static_cast<int>(source.columns.size()));
    }
  });
}

// --- Onto a server

void AppendText(std::string& line, std::string_view text) {
  for (const char c : text) {
    switch (c) {
      case '\\':
        line += "\\\\";
        break;
      case '\t':
        line += "\\t";
        break;
      case '\n':
        line += "\\n";
        break;
      case '\r':
        line += "\\r";
        break;
      default:
        line += c;
    }
  }
}

template <typename Number>
void AppendNumber(std::string& line, Number number) {
  char digits[32];
  const auto end = std::to_chars(digits, digits + sizeof digits, number);
  line.append(digits, end.ptr);
}

void AppendCell(std::string& line, const Chunk& chunk, std::size_t at, std::size_t row,
                const Column& column) {
  if (chunk.IsNull(at, row)) {
    line += "\\N";
    return;
  }
  switch (column.kind) {
    case ColumnKind::kKey:
    case ColumnKind::kWhole:
      return AppendNumber(line, chunk.Get<std::int32_t>(at, row));
    case ColumnKind::kFlag:
      line += chunk.Get<std::int16_t>(at, row) != 0 ? 't' : 'f';
      return;
    case ColumnKind::kSingle:
      return AppendNumber(line, chunk.Get<double>(at, row));
    case ColumnKind::kMoney:
      line += Currency::FromTenThousandths(chunk.Get<std::int64_t>(at, row)).ToText();
      return;
    case ColumnKind::kDate:
    case ColumnKind::kDateTime: {
      const Date date(chunk.Get<double>(at, row));
      if (column.kind == ColumnKind::kDate && date.HasTime()) {
        throw Error(ErrorNumber::kTypeMismatch, "the date " + date.ToIso() + " in " +
                                                    std::string(column.name) +
                                                    " has a time of day, which would be lost");
      }
      line += date.ToIso();
      return;
    }
    case ColumnKind::kText:
      return AppendText(line, chunk.Text(at, row));
  }
}

std::int64_t CopyTable(Snapshot& state, const Source& source, ServerWriter& writer,
                       const CopyProgress& progress) {
  writer.BeginRows(source.table->name, Names(source, true));
  const std::int64_t rows = ReadRows(state, source, progress, [&](const Chunk& chunk) {
    std::string lines;
    for (std::size_t row = 0; row < chunk.RowCount(); ++row) {
      for (std::size_t at = 0; at < source.columns.size(); ++at) {
        if (at > 0) lines += '\t';
        AppendCell(lines, chunk, at, row, *source.columns[at]);
      }
      lines += '\n';
    }
    writer.AddRows(lines);
  });
  writer.EndRows();
  return rows;
}

std::unique_ptr<Reader> ReaderOf(const std::string& connection_string) {
  const ConnectionTarget target = TargetOf(connection_string);
  return target.engine == EngineKind::kPostgresql ? ReadServer(connection_string)
                                                  : ReadFile(FileOf(target));
}

// " (Item_id 5: Uom_id)" of the first row in which a text stands in a column of whole numbers; ""
// where there is none, as on servers.
std::string WrongRow(const std::string& connection_string, const Source& source) {
  if (TargetOf(connection_string).engine == EngineKind::kPostgresql) return {};
  const std::unique_ptr<Reader> books = ReaderOf(connection_string);
  const std::string key(source.table->key.empty() ? "rowid" : source.table->key);
  const std::string first_key = key.substr(0, key.find(','));
  for (const Column* column : source.columns) {
    if (column->kind != ColumnKind::kKey && column->kind != ColumnKind::kWhole) continue;
    const std::string name(column->name);
    const auto rows =
        books->Select("SELECT " + first_key + " FROM " + std::string(source.table->name) +
                      " WHERE typeof(" + name + ") = 'text' LIMIT 1");
    if (!rows.empty())
      return " (" + first_key + " " + rows[0][0].value_or("Null") + ": " + name + ")";
  }
  return {};
}

template <typename Target>
std::vector<ImportedTable> CopyTables(Provider& books, const std::string& from, Target& target,
                                      const CopyProgress& progress) {
  const std::shared_ptr<Snapshot> state = books.TakeSnapshot(kNoLimit);
  std::vector<ImportedTable> copied;
  for (const Table& table : Tables()) {
    const std::optional<Source> source = SourceOf(books, table);
    if (!source || source->columns.empty()) continue;
    if (progress) progress(table.name);
    try {
      copied.push_back({table.name, CopyTable(*state, *source, target, progress)});
    } catch (const Error& error) {
      const bool is_of_a_value = error.Number() == ErrorNumber::kTypeMismatch;
      throw error.While("copying " + std::string(table.name) +
                        (is_of_a_value ? WrongRow(from, *source) : ""));
    }
  }
  if (copied.empty()) {
    throw Error(ErrorNumber::kConnection, "there is nothing to copy: " + NameOfDatabase(from) +
                                              " holds no books, or none that the user may see");
  }
  return copied;
}

bool HoldsBooks(const std::string& connection_string) {
  const std::vector<std::string> tables = ReaderOf(connection_string)->TableNames();
  return std::ranges::any_of(tables,
                             [](const std::string& name) { return FindTable(name) != nullptr; });
}

// Where there are no books at all, the copy itself says so.
void RefuseExtras(const std::string& from) {
  if (!HoldsBooks(from)) return;
  std::string names;
  for (const std::string& extra : ExtrasOf(from)) names += (names.empty() ? "" : ", ") + extra;
  if (names.empty()) return;
  throw Error(ErrorNumber::kArgumentOutOfRange,
              "nothing is copied: the reference schema has no place for " + names +
                  "; say leave-out to copy the rest");
}

}  // namespace

std::vector<std::string> ExtrasOf(const std::string& connection_string) {
  const std::unique_ptr<Reader> books = ReaderOf(connection_string);
  std::vector<std::string> extras;
  for (const std::string& name : books->TableNames()) {
    const Table* const table = FindTable(name);
    if (table == nullptr) {
      extras.push_back(name);
      continue;
    }
    for (const DeclaredColumn& column : books->ColumnsIn(*table)) {
      if (table->Find(column.name) == nullptr) extras.push_back(name + "." + column.name);
    }
  }
  return extras;
}

std::vector<ImportedTable> CopyBooks(const std::string& from, const std::string& to,
                                     const CopyProgress& progress, Extras extras) {
  if (extras == Extras::kRefused) RefuseExtras(from);
  const std::shared_ptr<Provider> books = OpenDatabase(from, std::chrono::seconds(30));
  const ConnectionTarget target = TargetOf(to);
  std::vector<ImportedTable> copied;
  const auto indexing = [&progress](std::string_view table) {
    if (progress) progress(table);
  };
  if (target.engine == EngineKind::kPostgresql) {
    ServerWriter writer(to);
    MakeServerBooks(
        writer, [&] { copied = CopyTables(*books, from, writer, progress); }, indexing);
  } else {
    MakeBooks(
        target.path, [&](Writer& writer) { copied = CopyTables(*books, from, writer, progress); },
        indexing);
  }
  return copied;
}

void CopyRows(const std::string& path, const std::vector<ImportedTable>& tables,
              ServerWriter& writer) {
  const std::shared_ptr<Provider> books = OpenDatabase(path, kNoLimit);
  const std::shared_ptr<Snapshot> state = books->TakeSnapshot(kNoLimit);
  for (const ImportedTable& table : tables) {
    const std::optional<Source> source = SourceOf(*books, *FindTable(table.table));
    if (source) static_cast<void>(CopyTable(*state, *source, writer, {}));
  }
}

}  // namespace pstolvane1::books
