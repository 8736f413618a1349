// Every file of tests/cases, on every engine and on both paths.
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <numeric>
#include <ostream>
#include <sstream>
#include <unistd.h>

#include "Call.h"
#include "CaseFile.h"
#include "ServerBooks.h"
#include "SmallBooks.h"
#include "session/books/CopyBooks.h"
#include "session/books/SampleBooks.h"

namespace pstolvane1::golden {
namespace {

const std::string kCases = PST_SOURCE_DIR "/tests/cases";

// A rowset of more columns stands on its side.
constexpr int kMostColumns = 40;

enum class Engine { kSqlite, kPostgres };

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

Outcome RunCall(const CaseFile& file, Path path, const std::string& connection) {
  clsStolvane1 session;
  Apply(session, file, connection);
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

Outcome RunCase(const CaseFile& file, Path path, Engine engine) {
  if (engine == Engine::kPostgres) {
    const ServerBooks books(file.books);
    return RunCall(file, path, books.ConnectionString());
  }
  const SmallBooks books(file.books);
  return RunCall(file, path, books.ConnectionString());
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

// Sample books are larger than those of the cases, and nobody has reckoned their reports: the
// engines are held against each other.
class SampleBooks {
 public:
  SampleBooks() {
    std::filesystem::remove(file_);
    books::SampleBooks(file_, 4000);
    (void)books::CopyBooks(file_, server_.ConnectionString());
  }
  ~SampleBooks() {
    std::error_code ignored;
    std::filesystem::remove(file_, ignored);
  }
  SampleBooks(const SampleBooks&) = delete;
  SampleBooks& operator=(const SampleBooks&) = delete;

  [[nodiscard]] std::string InFile() const { return file_; }
  [[nodiscard]] const std::string& OnServer() const { return server_.ConnectionString(); }

 private:
  const std::filesystem::path file_ = std::filesystem::temp_directory_path() /
                                      ("golden_sample_" + std::to_string(getpid()) + ".db");
  Scratch server_;
};

// Its lines of one day come as the engine finds them.
const std::string kOrderedByDateAlone = "POrderTextQuery";

std::string LinesInOrder(const std::string& text) {
  std::istringstream in(text);
  std::vector<std::string> lines;
  for (std::string line; std::getline(in, line);) lines.push_back(line + "\n");
  std::sort(lines.begin(), lines.end());
  return std::accumulate(lines.begin(), lines.end(), std::string());
}

TEST(Engines, GiveTheSameReportsOfSampleBooks) {
  const SampleBooks books;
  std::ptrdiff_t calls = 0;
  std::ptrdiff_t lines = 0;
  for (const auto& setup : AllSetups(Engine::kSqlite)) {
    if (setup.path == Path::kAsynchronous) continue;
    const CaseFile file = ReadCase(kCases + "/" + setup.file, kCases);
    std::string in_file = Expectation(RunCall(file, setup.path, books.InFile()), {});
    std::string on_server = Expectation(RunCall(file, setup.path, books.OnServer()), {});
    if (file.operation == kOrderedByDateAlone) {
      in_file = LinesInOrder(in_file);
      on_server = LinesInOrder(on_server);
    }
    EXPECT_EQ(in_file, on_server) << setup.file;
    lines += std::count(in_file.begin(), in_file.end(), '\n');
    ++calls;
  }
  EXPECT_GT(lines, 20 * calls) << "the calls find something";
}

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
