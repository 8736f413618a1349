// Catalogue, members, tables, cases, query texts and docs tell of the same reports.
#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "Call.h"
#include "Play.h"
#include "QueryFile.h"
#include "automation/Calls.h"
#include "automation/Operations.h"
#include "session/ReportTable.h"

namespace pstolvane1::golden {
namespace {

using automation::IsBuilt;
using automation::LaunchKind;
using automation::Operation;
using automation::Operations;

std::string ContentOf(const std::string& file) {
  std::ostringstream content;
  content << std::ifstream(SourcePath(file)).rdbuf();
  return content.str();
}

bool IsReport(const Operation& operation) { return operation.launch != LaunchKind::kMember; }
// A builder that may be called by itself sends nothing.
bool SendsQueries(const Operation& operation) {
  return IsReport(operation) && operation.launch != LaunchKind::kRowBuilder;
}

std::vector<const Operation*> BuiltReports() {
  std::vector<const Operation*> built;
  for (const Operation& operation : Operations()) {
    if (IsReport(operation) && IsBuilt(operation)) built.push_back(&operation);
  }
  return built;
}

// The cases whose last call is of the operation.
std::vector<CaseFile> CasesOf(const Operation& operation) {
  std::vector<CaseFile> cases;
  for (const std::string& file : AllCases()) {
    if (std::filesystem::path(file).parent_path() != operation.name) continue;
    cases.push_back(ReadCase(kCases + "/" + file, kCases));
    EXPECT_EQ(cases.back().calls.back().operation, operation.name) << file;
  }
  return cases;
}

bool ShowsAWholeRowset(const CaseFile& file) {
  return !file.expected.table.empty() && file.expected.Columns().empty();
}

// A query's own rowset names its columns after the alias.
bool HasAlias(const CaseFile& file) {
  return std::ranges::any_of(
      file.settings, [](const auto& setting) { return setting.first.starts_with("alias "); });
}

// The columns of a whole rowset, upright or on its side.
std::vector<std::string> ColumnNamesOf(const CaseFile& file) {
  const std::vector<Cells>& table = file.expected.table;
  Cells heads = table.front();
  const auto ends_in_type = [](const std::string& head) {
    return head.find_last_of("0123456789") == head.size() - 1 &&
           head.find(' ') != std::string::npos;
  };
  if (!std::ranges::all_of(heads, ends_in_type)) {
    heads.clear();
    for (const Cells& line : table) heads.push_back(line.front());
  }
  for (std::string& head : heads) head.resize(head.find_last_of(' '));
  return heads;
}

std::set<std::int32_t> TypesOf(const Operation& operation) {
  std::set<std::int32_t> types;
  for (const auto& rule : operation.report_types) types.insert(rule.stored);
  return types;
}

std::string LowerCase(std::string text) {
  std::ranges::transform(text, text.begin(), [](unsigned char c) { return std::tolower(c); });
  return text;
}

// The words between backticks in small letters: a query's own column is named as its text is.
std::set<std::string> QuotedNames(const std::string& text) {
  std::set<std::string> names;
  std::istringstream parts(text);
  std::string part;
  for (bool quoted = false; std::getline(parts, part, '`'); quoted = !quoted) {
    if (quoted) names.insert(LowerCase(part));
  }
  return names;
}

// docs/reports.md in its entries. An entry starts with the names of its operations and goes on to
// the next one or the next heading.
struct Docs {
  std::string preface;
  std::map<std::string, std::string, std::less<>> entries;  // by operation
  std::set<std::string> not_built;
};

std::vector<std::string> OperationsAtTheStartOf(const std::string& line) {
  std::vector<std::string> names;
  std::size_t at = 0;
  while (at < line.size() && line[at] == '`') {
    const std::size_t end = line.find('`', at + 1);
    const std::string name = line.substr(at + 1, end - at - 1);
    if (automation::FindOperation(name) == nullptr) break;
    names.push_back(name);
    at = line.compare(end + 1, 2, ", ") == 0 ? end + 3 : line.size();
  }
  return names;
}

Docs ReadDocs() {
  constexpr std::string_view kNotBuilt = "## Not in this version";
  Docs docs;
  std::istringstream lines(ContentOf("docs/reports.md"));
  std::vector<std::string> in_hand;
  bool in_preface = true;
  bool in_not_built = false;
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("## ")) {
      in_preface = false;
      in_not_built = line == kNotBuilt;
      in_hand.clear();
    } else if (in_not_built) {
      docs.not_built.merge(QuotedNames(line));
    } else if (in_preface) {
      docs.preface += line + '\n';
    } else {
      const std::vector<std::string> names = OperationsAtTheStartOf(line);
      if (!names.empty()) in_hand = names;
      for (const std::string& name : in_hand) docs.entries[name] += line + '\n';
    }
  }
  return docs;
}

TEST(EveryOperation, IsAMemberOfTheSessionOrSaysThatItIsNot) {
  const std::string header = ContentOf("session/clsStolvane1.h");
  for (const Operation& operation : Operations()) {
    EXPECT_EQ(header.find(" " + std::string(operation.name) + "(") != std::string::npos,
              IsBuilt(operation))
        << operation.name;
    if (IsBuilt(operation)) continue;
    clsStolvane1 session;
    try {
      (void)automation::Call(session, operation, std::vector<automation::NamedValue>());
      ADD_FAILURE() << operation.name << " is called";
    } catch (const Error& error) {
      EXPECT_EQ(error.Description(), std::string(operation.name) +
                                         " is described, but this version does not build it yet");
    }
  }
}

TEST(EveryOperation, HasARowWithABuilderForEachOfItsReportTypes) {
  std::set<std::int32_t> built;
  for (const Operation* const operation : BuiltReports()) {
    for (const std::int32_t type : TypesOf(*operation)) {
      const ReportRow* const row = FindRow(AllReports(), type);
      EXPECT_TRUE(row != nullptr && row->builder != nullptr)
          << operation->name << " " << ReportTypeText(type);
      built.insert(type);
    }
  }
  for (const ReportRow& row : AllReports()) {
    for (std::int32_t type = row.first; row.builder != nullptr && type <= row.last; ++type) {
      EXPECT_TRUE(built.contains(type)) << ReportTypeText(type) << " is built for no operation";
    }
  }
}

TEST(EveryOperation, ShowsItsWholeRowsetInACaseAndHasOneForEachReportType) {
  const std::vector<QueryFile> queries = AllQueries();
  for (const Operation* const operation : BuiltReports()) {
    SCOPED_TRACE(operation->name);
    const std::vector<CaseFile> cases = CasesOf(*operation);
    // A report whose texts are all refused has no rowset.
    const bool is_refused = std::ranges::none_of(queries, [&](const QueryFile& query) {
      return query.sender && query.sender->calls.front().operation == operation->name &&
             query.refused.empty();
    });
    const bool has_rowset = SendsQueries(*operation) && !is_refused;
    EXPECT_TRUE(has_rowset ? std::ranges::any_of(cases, ShowsAWholeRowset) : !cases.empty());
    std::set<std::int32_t> shown;
    for (const CaseFile& file : cases) {
      const auto type = ReportTypeOf(file.calls.back());
      if (type) shown.insert(*type);
    }
    for (const std::int32_t type : TypesOf(*operation)) {
      EXPECT_TRUE(shown.contains(type)) << ReportTypeText(type);
    }
  }
}

TEST(EveryOperation, HasItsCasesInTheFolderOfItsName) {
  for (const std::string& file : AllCases()) {
    const std::string folder = std::filesystem::path(file).parent_path().string();
    const Operation* const operation = automation::FindOperation(folder);
    EXPECT_TRUE(operation != nullptr && operation->name == folder && IsBuilt(*operation)) << file;
  }
}

TEST(EveryOperation, HasItsQueryTextsInTheFolderOfItsFamily) {
  std::set<std::string_view> senders;
  for (const QueryFile& query : AllQueries()) {
    if (!query.sender) continue;
    const Operation& operation = automation::GetOperation(query.sender->calls.front().operation);
    senders.insert(operation.name);
    const std::string folder = std::filesystem::path(query.path).parent_path().filename().string();
    EXPECT_EQ(folder, query.refused.empty() ? operation.family : "refused") << query.path;
  }
  for (const Operation* const operation : BuiltReports()) {
    EXPECT_EQ(senders.contains(operation->name), SendsQueries(*operation)) << operation->name;
  }
}

// Forms of the dialect stand in a folder of their own.
TEST(EveryOperation, HasNoQueryTextWithoutACallOnceItIsBuilt) {
  for (const QueryFile& query : AllQueries()) {
    const std::filesystem::path path = query.path;
    const std::string family = path.parent_path().filename().string();
    if (query.sender || family == "dialect") continue;
    const auto names_it = [&](const Operation& operation) {
      const std::string name(operation.name);
      return path.stem() == name || path.stem().string().starts_with(name + "_");
    };
    bool waits = false;
    for (const Operation& operation : Operations()) {
      EXPECT_FALSE(IsBuilt(operation) && names_it(operation)) << query.path;
      waits = waits || (!IsBuilt(operation) && (family == "refused" || operation.family == family));
    }
    EXPECT_TRUE(waits) << query.path << " is a text of no report";
  }
}

// The names of an entry, and those of the entries that it refers to.
std::set<std::string> ToldOf(const Docs& docs, const Operation& operation) {
  std::set<std::string> told = QuotedNames(docs.entries.find(operation.name)->second);
  for (const Operation& other : Operations()) {
    if (!told.contains(LowerCase(std::string(other.name)))) continue;
    const auto entry = docs.entries.find(other.name);
    if (entry != docs.entries.end()) told.merge(QuotedNames(entry->second));
  }
  return told;
}

TEST(EveryOperation, IsDescribedWithItsColumns) {
  const Docs docs = ReadDocs();
  const std::set<std::string> everywhere = QuotedNames(docs.preface);
  for (const Operation& operation : Operations()) {
    SCOPED_TRACE(operation.name);
    const auto entry = docs.entries.find(operation.name);
    if (!IsReport(operation)) continue;
    EXPECT_EQ(entry != docs.entries.end(), IsBuilt(operation));
    EXPECT_EQ(docs.not_built.contains(LowerCase(std::string(operation.name))), !IsBuilt(operation));
    if (entry == docs.entries.end()) continue;
    const std::set<std::string> told = ToldOf(docs, operation);
    for (const CaseFile& file : CasesOf(operation)) {
      if (!ShowsAWholeRowset(file) || HasAlias(file)) continue;
      for (const std::string& column : ColumnNamesOf(file)) {
        const std::string name = LowerCase(column);
        EXPECT_TRUE(name.ends_with("sort") || told.contains(name) || everywhere.contains(name))
            << column;
      }
    }
  }
  for (const std::string& name : docs.not_built) {
    EXPECT_NE(automation::FindOperation(name), nullptr) << name;
  }
}

}  // namespace
}  // namespace pstolvane1::golden
