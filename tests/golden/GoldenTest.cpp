// Every file of tests/cases, on every engine and on both paths.
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <ostream>

#include "Call.h"
#include "CaseFile.h"
#include "SmallBooks.h"

namespace pstolvane1::golden {
namespace {

const std::string kCases = PST_SOURCE_DIR "/tests/cases";

// A rowset of more columns stands on its side.
constexpr int kMostColumns = 40;

enum class Path { kSynchronous, kAsynchronous };

struct Setup {
  std::string file;  // relative to the folder of the cases
  Path path;
  Engine engine;
};

void PrintTo(const Setup& setup, std::ostream* out) {
  *out << setup.file << (setup.path == Path::kSynchronous ? ", at once" : ", fetched");
}

std::vector<Setup> AllSetups(Engine engine) {
  std::vector<std::string> files;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(kCases)) {
    if (entry.path().extension() == ".case") {
      files.push_back(std::filesystem::relative(entry.path(), kCases).string());
    }
  }
  std::sort(files.begin(), files.end());
  std::vector<Setup> setups;
  for (const std::string& file : files) {
    for (const Path path : {Path::kSynchronous, Path::kAsynchronous})
      setups.push_back({file, path, engine});
  }
  return setups;
}

std::string NameOf(const testing::TestParamInfo<Setup>& info) {
  std::string name = info.param.file.substr(0, info.param.file.size() - 5);
  std::replace_if(
      name.begin(), name.end(),
      [](char c) { return std::isalnum(static_cast<unsigned char>(c)) == 0 && c != '_'; }, '_');
  return name + (info.param.path == Path::kSynchronous ? "_at_once" : "_fetched");
}

std::string CellText(const Variant& value) {
  if (value.IsNull() || value.IsEmpty()) return kNullCell;
  return CellOf(value.Type() == adCurrency ? value.ToCurrency().ToText() : value.ToText());
}

std::string TableOf(Recordset& rowset) {
  std::vector<std::vector<std::string>> lines(1);
  for (int column = 0; column < rowset.Fields().Count(); ++column) {
    const Field field = rowset.Fields()(column);
    lines[0].push_back(field.Name() + " " + std::to_string(field.Type()));
  }
  for (const Recordset::Row row : rowset.Rows()) {
    std::vector<std::string>& line = lines.emplace_back();
    for (int column = 0; column < rowset.Fields().Count(); ++column) {
      line.push_back(CellText(row[ColumnHandle{column}]));
    }
  }
  return rowset.Fields().Count() > kMostColumns ? OnItsSide(lines) : Aligned(lines);
}

// What one run of a case came to.
struct Outcome {
  RecordsetPtr rowset;
  std::optional<std::int32_t> any_count;  // told by FetchComplete only
  std::optional<Error> error;
  std::vector<std::string> events;
};

void Record(clsStolvane1& session, Outcome& outcome) {
  session.FetchProgress = [&outcome](std::uint8_t percent, std::string_view message) {
    const std::string event = std::to_string(percent) + " " + std::string(message);
    if (outcome.events.empty() || outcome.events.back() != event) outcome.events.push_back(event);
  };
  session.FetchComplete = [&outcome](const RecordsetPtr& rowset, std::int32_t any_count) {
    outcome.rowset = rowset;
    outcome.any_count = any_count;
    outcome.events.push_back("FetchComplete " + std::to_string(any_count));
  };
}

Outcome RunCase(const CaseFile& file, Path path, Engine engine) {
  const SmallBooks books(engine, file.books);
  clsStolvane1 session;
  Apply(session, file, books.ConnectionString());
  Outcome outcome;
  Record(session, outcome);
  try {
    const RecordsetPtr returned = Call(session, file, path == Path::kSynchronous);
    if (returned) outcome.rowset = returned;
    for (int round = 0; round < 1000 && !outcome.rowset; ++round) {
      (void)WaitForEvents(std::chrono::milliseconds(10));
    }
  } catch (const Error& error) {
    outcome.error = error;
  }
  return outcome;
}

std::string Expectation(const Outcome& outcome, const std::optional<std::int32_t>& any_count) {
  if (outcome.error) {
    return "expect error " + std::to_string(static_cast<std::int32_t>(outcome.error->Number())) +
           "\n" + outcome.error->Description() + "\n";
  }
  if (!outcome.rowset) return "expect nothing\n";
  return "expect" + (any_count ? " anyCount " + std::to_string(*any_count) : std::string()) + "\n" +
         TableOf(*outcome.rowset);
}

std::string EventBlock(const std::vector<std::string>& events) {
  std::string text = "\nexpect events\n";
  for (const std::string& event : events) text += event + "\n";
  return text;
}

// The expectation without its events.
std::string RowsetPart(const std::string& expected) {
  std::string part = expected.substr(0, expected.find("expect events"));
  while (part.ends_with("\n\n")) part.pop_back();
  return part;
}

class GoldenCase : public testing::TestWithParam<Setup> {};

TEST_P(GoldenCase, GivesItsReport) {
  const std::string path = kCases + "/" + GetParam().file;
  const CaseFile file = ReadCase(path, kCases);
  const Outcome outcome = RunCase(file, GetParam().path, GetParam().engine);
  const bool fetched = GetParam().path == Path::kAsynchronous;
  if (std::getenv("PST_REWRITE_CASES") != nullptr) {
    if (fetched && GetParam().engine == Engine::kSqlite) {
      RewriteCase(path, Expectation(outcome, outcome.any_count) +
                            (file.has_events ? EventBlock(outcome.events) : std::string()));
    }
    return;
  }
  // A synchronous call has no count; what the case says of it is then taken over.
  std::optional<std::int32_t> any_count = outcome.any_count;
  if (!fetched && file.expected.starts_with("expect anyCount ")) {
    any_count = std::stoi(file.expected.substr(16));
  }
  EXPECT_EQ(RowsetPart(file.expected), Expectation(outcome, any_count));
  if (fetched && file.has_events) {
    EXPECT_EQ(file.events, outcome.events);
  }
}

INSTANTIATE_TEST_SUITE_P(Sqlite, GoldenCase, testing::ValuesIn(AllSetups(Engine::kSqlite)), NameOf);
INSTANTIATE_TEST_SUITE_P(Postgres, GoldenCase, testing::ValuesIn(AllSetups(Engine::kPostgres)),
                         NameOf);

TEST(CaseFile, CellsSurviveReadingAndWriting) {
  for (const std::string text :
       {"plain", "", " blank ", "a|b", "say \"yes\"", "(null)", "____", "1\u00A0€"}) {
    EXPECT_EQ(TextOf(CellOf(text)), text);
  }
  EXPECT_EQ(CellOf(std::string(90, '_')), "_ x 90");
  EXPECT_EQ(CellOf(""), "\"\"");
}

TEST(CaseFile, ColumnsAreAlignedByCharacters) {
  EXPECT_EQ(Aligned({{"Ledger", "Amount"}, {"Anand", "₹ 1"}, {"B", "22"}}),
            "Ledger | Amount\nAnand  | ₹ 1\nB      | 22\n");
}

TEST(CaseFile, ARowsetOnItsSideHasALineForEachColumnAndShowsNullAsNothing) {
  EXPECT_EQ(OnItsSide({{"Item 8", "Qty 4"}, {"Chain", "1"}, {"\"\"", "(null)"}}),
            "Item 8 | Chain | \"\"\nQty 4  | 1     |\n");
}

}  // namespace
}  // namespace pstolvane1::golden
