// Every query text of the reports is read, printed and read again.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

#include "session/data/Error.h"
#include "session/sql/Parser.h"
#include "session/sql/Print.h"
#include "tests/SourcePath.h"
#include "tests/sql/Dump.h"

namespace pstolvane1::sql {
namespace {

namespace fs = std::filesystem;

std::vector<fs::path> QueryFiles() {
  std::vector<fs::path> files;
  for (const auto& entry : fs::recursive_directory_iterator(SourcePath("tests/queries"))) {
    const bool refused = entry.path().parent_path().filename() == "refused";
    if (entry.path().extension() == ".sql" && !refused) files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  return files;
}

std::string TextOf(const fs::path& path) {
  std::ostringstream text;
  text << std::ifstream(path).rdbuf();
  return text.str();
}

TEST(Queries, OfTheReportsSurviveReadPrintRead) {
  const std::vector<fs::path> files = QueryFiles();
  EXPECT_GT(files.size(), 100U);
  for (const fs::path& file : files) {
    SCOPED_TRACE(file);
    try {
      const Statement statement = Parse(TextOf(file));
      const std::string printed = Print(statement.query);
      const Statement again = Parse(printed);
      EXPECT_EQ(Dump(again.query), Dump(statement.query));
      EXPECT_EQ(Print(again.query), printed);
    } catch (const Error& error) {
      ADD_FAILURE() << error.Description();
    }
  }
}

}  // namespace
}  // namespace pstolvane1::sql
