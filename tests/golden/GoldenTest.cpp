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
  Path path;
  Engine engine;
};

void PrintTo(const Setup& setup, std::ostream* out) {
  *out << setup.file << (setup.path == Path::kSynchronous ? ", at once" : ", fetched");
}

std::vector<Setup> AllSetups(Engine engine) {
  std::vector<Setup> setups;
  for (const std::string& file : AllCases()) {
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

Outcome RunCase(const CaseFile& file, Path path, Engine engine) {
  if (engine == Engine::kPostgres) {
    static ServerBooks books;
    books.Hold(file.books);
    return Play(file, path, books.ConnectionString());
  }
  const SmallBooks books(file.books);
  return Play(file, path, books.ConnectionString());
}

class GoldenCase : public testing::TestWithParam<Setup> {};

TEST_P(GoldenCase, GivesItsReport) {
  const std::string path = kCases + "/" + GetParam().file;
  const CaseFile file = ReadCase(path, kCases);
  const Outcome outcome = RunCase(file, GetParam().path, GetParam().engine);
  const bool fetched = GetParam().path == Path::kAsynchronous;
  if (std::getenv("PST_REWRITE_CASES") != nullptr) {
    if (fetched && GetParam().engine == Engine::kSqlite) {
      RewriteCase(path, ExpectationLike(file, outcome, GetParam().path) +
                            (file.expected.has_events ? EventBlock(outcome.events) : ""));
    }
    return;
  }
  EXPECT_EQ(file.expected.Text(), ExpectationLike(file, outcome, GetParam().path));
  if (fetched && file.expected.has_events) {
    EXPECT_EQ(file.expected.events, outcome.events);
  }
}

INSTANTIATE_TEST_SUITE_P(Sqlite, GoldenCase, testing::ValuesIn(AllSetups(Engine::kSqlite)), NameOf);
INSTANTIATE_TEST_SUITE_P(Postgres, GoldenCase, testing::ValuesIn(AllSetups(Engine::kPostgres)),
                         NameOf);

}  // namespace
}  // namespace pstolvane1::golden
