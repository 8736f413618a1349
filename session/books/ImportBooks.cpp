#include "session/books/ImportBooks.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>

#include "session/books/BooksFile.h"
#include "session/books/CopyBooks.h"
#include "session/books/CsvReader.h"
#include "session/books/FieldValue.h"
#include "session/books/Schema.h"
#include "session/books/ServerWriter.h"
#include "session/books/Writer.h"
#include "session/data/Error.h"
#include "session/engine/ConnectionString.h"

namespace pstolvane1::books {
namespace {

namespace fs = std::filesystem;

struct Source {
  const Table* table;
  fs::path file;
};

[[noreturn]] void FailFile(const fs::path& file, const std::string& reason) {
  throw Error(ErrorNumber::kTypeMismatch, file.string() + ":1:1: " + reason);
}

bool IsCsv(const fs::path& file) {
  const std::string ending = file.extension().string();
  return ending == ".csv" || ending == ".CSV";
}

// The files of the folder that name a table, in the schema's order.
std::vector<Source> FindSources(const std::string& folder) {
  std::error_code failure;
  std::vector<fs::path> files;
  for (const auto& entry : fs::directory_iterator(folder, failure)) {
    if (IsCsv(entry.path())) files.push_back(entry.path());
  }
  if (failure) {
    throw Error(ErrorNumber::kConnection,
                "cannot read the folder \"" + folder + "\": " + failure.message());
  }
  std::ranges::sort(files);
  std::vector<Source> sources;
  for (const fs::path& file : files) {
    const std::string name = file.stem().string();
    const Table* table = FindTable(name);
    if (!table) FailFile(file, "the books have no table \"" + name + "\"");
    const auto twin = std::ranges::find(sources, table, &Source::table);
    if (twin != sources.end()) {
      FailFile(file, "the table has a file already, \"" + twin->file.filename().string() + "\"");
    }
    sources.push_back({table, file});
  }
  if (sources.empty()) {
    throw Error(ErrorNumber::kConnection,
                "the folder \"" + folder + "\" has no files named TABLE.csv");
  }
  std::ranges::sort(sources, {}, &Source::table);
  return sources;
}

// The columns that a header names, in its order.
std::vector<const Column*> ColumnsOf(const Table& table, const std::vector<CsvField>& header,
                                     const CsvReader& reader) {
  std::vector<const Column*> columns;
  for (const CsvField& field : header) {
    const Column* column = table.Find(field.text);
    if (!column) {
      reader.Fail(field,
                  "the table " + std::string(table.name) + " has no column \"" + field.text + "\"");
    }
    if (std::ranges::find(columns, column) != columns.end()) {
      reader.Fail(field, "the column \"" + field.text + "\" is named twice");
    }
    columns.push_back(column);
  }
  for (const Column& column : table.columns) {
    if (column.kind == ColumnKind::kKey && std::ranges::find(columns, &column) == columns.end()) {
      reader.Fail(1, 1, "the key column \"" + std::string(column.name) + "\" is missing");
    }
  }
  return columns;
}

std::string NamesOf(const std::vector<const Column*>& columns) {
  std::string names;
  for (const Column* column : columns) {
    if (!names.empty()) names += ", ";
    names += column->name;
  }
  return names;
}

// Told at the first of the key's fields.
[[noreturn]] void FailKey(const std::vector<const Column*>& columns,
                          const std::vector<CsvField>& fields, const CsvReader& reader) {
  const CsvField* place = nullptr;
  std::string values;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (columns[i]->kind != ColumnKind::kKey) continue;
    if (!place) place = &fields[i];
    if (!values.empty()) values += ", ";
    values += fields[i].text;
  }
  reader.Fail(*place, "a row with the key " + values + " is there already");
}

void ImportRow(const std::vector<const Column*>& columns, const std::vector<CsvField>& fields,
               const CsvReader& reader, Statement& insert) {
  if (fields.size() != columns.size()) {
    const CsvField& place = fields[std::min(fields.size(), columns.size() + 1) - 1];
    reader.Fail(place, "the row has " + std::to_string(fields.size()) + " fields and the header " +
                           std::to_string(columns.size()));
  }
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const std::string reason = BindField(fields[i], *columns[i], insert, static_cast<int>(i) + 1);
    if (!reason.empty()) {
      reader.Fail(fields[i], std::string(columns[i]->name) + ": " + reason);
    }
  }
  if (!insert.TryStep(static_cast<int>(columns.size()))) FailKey(columns, fields, reader);
}

std::int64_t ImportTable(Writer& writer, const Source& source) {
  std::ifstream text(source.file, std::ios::binary);
  if (!text) FailFile(source.file, "the file cannot be opened");
  CsvReader reader(text, source.file.string());
  std::vector<CsvField> fields;
  if (!reader.Read(fields)) reader.Fail(1, 1, "the file has no header");
  const std::vector<const Column*> columns = ColumnsOf(*source.table, fields, reader);
  Statement insert(writer, source.table->name, NamesOf(columns));
  std::int64_t rows = 0;
  while (reader.Read(fields)) {
    ImportRow(columns, fields, reader, insert);
    ++rows;
  }
  return rows;
}

}  // namespace

namespace {

std::vector<ImportedTable> ImportIntoFile(const std::string& path, const std::string& folder) {
  const std::vector<Source> sources = FindSources(folder);
  std::vector<ImportedTable> imported;
  const auto fill = [&](Writer& writer) {
    for (const Source& source : sources) {
      imported.push_back({source.table->name, ImportTable(writer, source)});
    }
  };
  if (std::error_code ignored; fs::exists(path, ignored)) {
    Writer writer(path, Writer::Existing{});
    fill(writer);
    writer.Finish();
  } else {
    MakeBooks(path, fill);
  }
  return imported;
}

// The rows are read and checked in a file first, and go to the server as a whole.
std::vector<ImportedTable> ImportIntoServer(const std::string& connection,
                                            const std::string& folder) {
  const PassingBooks books;
  std::vector<ImportedTable> imported = ImportIntoFile(books.Path(), folder);
  ServerWriter writer(connection);
  if (writer.CountTables() > 0) {
    CopyRows(books.Path(), imported, writer);
    writer.Finish();
  } else {
    MakeServerBooks(writer, [&] { CopyRows(books.Path(), imported, writer); });
  }
  return imported;
}

}  // namespace

std::vector<ImportedTable> ImportBooks(const std::string& connection, const std::string& folder) {
  const ConnectionTarget target = TargetOf(connection);
  return target.engine == EngineKind::kPostgresql ? ImportIntoServer(connection, folder)
                                                  : ImportIntoFile(target.path, folder);
}

}  // namespace pstolvane1::books
