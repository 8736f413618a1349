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
#include "automation/ColumnLooks.h"
#include "automation/Operations.h"
#include "session/ReportTable.h"

namespace pstolvane1::golden {
namespace {

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

std::vector<const Operation*> AllReportOperations() {
  std::vector<const Operation*> reports;
  for (const Operation& operation : Operations()) {
    if (IsReport(operation)) reports.push_back(&operation);
  }
  return reports;
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

// The words between backticks.
std::set<std::string> QuotedWords(const std::string& text) {
  std::set<std::string> words;
  std::istringstream parts(text);
  std::string part;
  for (bool quoted = false; std::getline(parts, part, '`'); quoted = !quoted) {
    if (quoted) words.insert(part);
  }
  return words;
}

// The same in small letters.
std::set<std::string> QuotedNames(const std::string& text) {
  std::set<std::string> names;
  for (const std::string& word : QuotedWords(text)) names.insert(LowerCase(word));
  return names;
}

// docs/reports.md in its entries. An entry starts with the names of its operations and goes on to
// the next one or the next heading.
struct Docs {
  std::string preface;
  std::map<std::string, std::string, std::less<>> entries;  // by operation
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
  Docs docs;
  std::istringstream lines(ContentOf("docs/reports.md"));
  std::vector<std::string> in_hand;
  bool in_preface = true;
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("## ")) {
      in_preface = false;
      in_hand.clear();
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

TEST(EveryOperation, HasARowWithABuilderForEachOfItsReportTypes) {
  std::set<std::int32_t> asked_for;
  for (const Operation* const operation : AllReportOperations()) {
    for (const std::int32_t type : TypesOf(*operation)) {
      const ReportRow* const row = FindRow(AllReports(), type);
      EXPECT_TRUE(row != nullptr && row->builder != nullptr)
          << operation->name << " " << ReportTypeText(type);
      asked_for.insert(type);
    }
  }
  for (const ReportRow& row : AllReports()) {
    for (std::int32_t type = row.first; row.builder != nullptr && type <= row.last; ++type) {
      EXPECT_TRUE(asked_for.contains(type)) << ReportTypeText(type) << " belongs to no operation";
    }
  }
}

TEST(EveryOperation, ShowsItsWholeRowsetInACaseAndHasOneForEachReportType) {
  const std::vector<QueryFile> queries = AllQueries();
  for (const Operation* const operation : AllReportOperations()) {
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
    EXPECT_TRUE(operation != nullptr && operation->name == folder) << file;
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
  for (const Operation* const operation : AllReportOperations()) {
    EXPECT_EQ(senders.contains(operation->name), SendsQueries(*operation)) << operation->name;
  }
}

// Forms of the dialect stand in a folder of their own, and so does what hosts must not send.
TEST(EveryOperation, SendsEachQueryText) {
  for (const QueryFile& query : AllQueries()) {
    const std::string folder = std::filesystem::path(query.path).parent_path().filename().string();
    EXPECT_TRUE(query.sender || folder == "dialect") << query.path << " is a text of no report";
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
    if (entry == docs.entries.end()) {
      ADD_FAILURE() << "has no entry";
      continue;
    }
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
}

// A builder that may be called by itself writes the report of another operation, and has its title.
TEST(EveryOperation, HasATitleOfItsOwn) {
  std::map<std::string_view, std::string_view> named;
  for (const Operation& operation : Operations()) {
    EXPECT_NE(operation.title.empty(), IsReport(operation)) << operation.name;
    if (!SendsQueries(operation)) continue;
    const auto [other, its_own] = named.emplace(operation.title, operation.name);
    EXPECT_TRUE(its_own) << operation.name << " is titled as " << other->second;
  }
}

TEST(EveryOperation, HasWordsOverItsColumns) {
  for (const Operation* const operation : AllReportOperations()) {
    SCOPED_TRACE(operation->name);
    for (const CaseFile& file : CasesOf(*operation)) {
      if (!ShowsAWholeRowset(file) || HasAlias(file)) continue;
      for (const std::string& column : ColumnNamesOf(file)) {
        const std::string name = LowerCase(column);
        if (name.ends_with("sort") || name.ends_with("_id")) continue;
        const ColumnLook look = automation::LookOfColumn(operation->name, column);
        EXPECT_TRUE(!look.shown || !look.label.empty()) << column;
      }
    }
  }
}

// Where the host gets a query's own rowset, the letters of its names are the query's.
TEST(EveryOperation, NamesTheColumnsOfAPlainRowsetAsTheyCome) {
  const Docs docs = ReadDocs();
  int columns = 0;
  for (const std::string name :
       {"POrderTextQuery", "LedgersByCode", "RtoSalesDetails", "AutoSearch"}) {
    const std::set<std::string> told = QuotedWords(docs.entries.find(name)->second);
    for (const CaseFile& file : CasesOf(automation::GetOperation(name))) {
      if (!ShowsAWholeRowset(file) || HasAlias(file)) continue;
      for (const std::string& column : ColumnNamesOf(file)) {
        EXPECT_TRUE(told.contains(column)) << name << ": " << column;
        ++columns;
      }
    }
  }
  EXPECT_GT(columns, 40);
}

}  // namespace
}  // namespace pstolvane1::golden
