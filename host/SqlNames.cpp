#include "host/SqlNames.h"

#include <algorithm>
#include <fmt/format.h>
#include <iterator>
#include <string_view>

#include "automation/Nearest.h"
#include "session/books/Schema.h"
#include "session/data/TextFold.h"
#include "session/engine/ConnectionString.h"

namespace pstolvane1::host {
namespace {

// How the front end begins to say that a name is not there; the name follows between quotes.
constexpr std::string_view kNoTable = "unknown table ";
constexpr std::string_view kNoColumn[] = {"unknown column ", " has no column "};

// The quoted word behind the beginning; "" where the description has none.
std::string NameBehind(const std::string& description, std::string_view beginning) {
  const std::size_t found = description.find(beginning);
  if (found == std::string::npos) return {};
  const std::size_t open = description.find('"', found + beginning.size());
  const std::size_t close = description.find('"', open + 1);
  if (open == std::string::npos || close == std::string::npos) return {};
  return description.substr(open + 1, close - open - 1);
}

std::string DidYouMean(const std::string& word, const std::vector<std::string>& names) {
  return automation::DidYouMean(word, std::vector<std::string_view>(names.begin(), names.end()));
}

RecordsetPtr NewList(std::initializer_list<std::string_view> columns) {
  RecordsetPtr rowset = Recordset::New();
  for (const std::string_view column : columns) rowset->Fields().Append(column, adVarChar);
  rowset->Open();
  return rowset;
}

void Add(Recordset& rowset, std::initializer_list<std::string_view> cells) {
  rowset.AddNew();
  int place = 0;
  for (const std::string_view cell : cells) rowset.SetText(ColumnHandle{place++}, cell);
  rowset.Update();
}

}  // namespace

SqlNames::~SqlNames() = default;

books::Reader& SqlNames::Opened() {
  if (!reader_) {
    const ConnectionTarget target = TargetOf(connection_);
    reader_ = target.engine == EngineKind::kSqlite ? books::ReadFile(FileOf(target))
                                                   : books::ReadServer(connection_);
  }
  return *reader_;
}

RecordsetPtr SqlNames::Tables() {
  RecordsetPtr rowset = NewList({"Table"});
  for (const std::string& name : Opened().TableNames()) Add(*rowset, {name});
  return rowset;
}

RecordsetPtr SqlNames::Columns(const std::string& table) {
  RecordsetPtr rowset = NewList({"Column", "Type"});
  for (const books::DeclaredColumn& column : Opened().ColumnsIn({table, {}, {}, {}})) {
    Add(*rowset, {column.name, column.type ? sql::NameOf(*column.type) : "cannot be read"});
  }
  if (rowset->RecordCount() == 0) {
    throw Error(ErrorNumber::kArgumentOutOfRange,
                fmt::format("there is no table \"{}\"{}; .tables lists them", table,
                            DidYouMean(table, Opened().TableNames())));
  }
  return rowset;
}

std::vector<std::string> SqlNames::ColumnsOf(const std::string& table) {
  std::vector<std::string> names;
  for (const books::DeclaredColumn& column : Opened().ColumnsIn({table, {}, {}, {}})) {
    names.push_back(column.name);
  }
  return names;
}

Error SqlNames::WithSuggestion(const Error& error, const std::string& text) {
  try {
    return {error.Number(), error.Description() + SuggestionFor(error.Description(), text),
            error.Cause()};
  } catch (const Error&) {
    return error;  // whose names cannot be read has no suggestion
  }
}

std::string SqlNames::SuggestionFor(const std::string& description, const std::string& text) {
  std::string suggestion;
  if (const std::string table = NameBehind(description, kNoTable); !table.empty()) {
    suggestion = DidYouMean(table, Opened().TableNames());
  }
  for (const std::string_view beginning : kNoColumn) {
    const std::string column = NameBehind(description, beginning);
    if (column.empty()) continue;
    // Those of the tables that the text names.
    std::vector<std::string> names;
    const std::string folded = Folded(text);
    for (const std::string& table : Opened().TableNames()) {
      if (folded.find(Folded(table)) == std::string::npos) continue;
      std::ranges::copy(ColumnsOf(table), std::back_inserter(names));
    }
    suggestion = DidYouMean(column, names);
  }
  return suggestion;
}

}  // namespace pstolvane1::host
