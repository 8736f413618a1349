// Every file of tests/cases, on every engine and on both paths.
#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>
#include <ostream>

#include "CaseFile.h"
#include "Play.h"
#include "ServerBooks.h"
#include "SmallBooks.h"

namespace pstolvane1::golden {
namespace {

enum class Engine { kSqlite, kPostgres };

struct Setup {
  std::string file;  // relative to the folder of the cases
  Engine engine;
};

void PrintTo(const Setup& setup, std::ostream* out) { *out << setup.file; }

std::vector<Setup> AllSetups(Engine engine) {
  std::vector<Setup> setups;
  for (const std::string& file : AllCases()) setups.push_back({file, engine});
  return setups;
}

std::string NameOf(const testing::TestParamInfo<Setup>& info) {
  std::string name = info.param.file.substr(0, info.param.file.size() - 5);
  std::replace_if(
      name.begin(), name.end(),
      [](char c) { return std::isalnum(static_cast<unsigned char>(c)) == 0 && c != '_'; }, '_');
  return name;
}

void ExpectTheReport(const CaseFile& file, const std::string& books) {
  for (const Path path : {Path::kSynchronous, Path::kAsynchronous}) {
    const Outcome outcome = Play(file, path, books);
    const bool fetched = path == Path::kAsynchronous;
    EXPECT_EQ(file.expected.Text(), ExpectationLike(file, outcome, path))
        << (fetched ? "fetched" : "at once");
    if (fetched && file.expected.has_events) {
      EXPECT_EQ(file.expected.events, outcome.events);
    }
  }
}

void Rewrite(const std::string& path, const CaseFile& file, const std::string& books) {
  const Outcome outcome = Play(file, Path::kAsynchronous, books);
  RewriteCase(path, ExpectationLike(file, outcome, Path::kAsynchronous) +
                        (file.expected.has_events ? EventBlock(outcome.events) : ""));
}

class GoldenCase : public testing::TestWithParam<Setup> {};

TEST_P(GoldenCase, GivesItsReportOnBothPaths) {
  const std::string path = kCases + "/" + GetParam().file;
  const CaseFile file = ReadCase(path, kCases);
  const bool rewrite = std::getenv("PST_REWRITE_CASES") != nullptr;
  if (GetParam().engine == Engine::kSqlite) {
    const SmallBooks books(file.books);
    rewrite ? Rewrite(path, file, books.ConnectionString())
            : ExpectTheReport(file, books.ConnectionString());
  } else if (!rewrite) {
    static ServerBooks books;
    books.Hold(file.books);
    ExpectTheReport(file, books.ConnectionString());
  }
}

INSTANTIATE_TEST_SUITE_P(Sqlite, GoldenCase, testing::ValuesIn(AllSetups(Engine::kSqlite)), NameOf);
INSTANTIATE_TEST_SUITE_P(Postgres, GoldenCase, testing::ValuesIn(AllSetups(Engine::kPostgres)),
                         NameOf);

}  // namespace
}  // namespace pstolvane1::golden
