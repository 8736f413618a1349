// Every query text of the reports is typed, written for SQLite and accepted by it; those that must
// be refused are refused with a reason.
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

#include "session/books/Schema.h"
#include "session/data/Error.h"
#include "session/sql/Translate.h"
#include "tests/sql/ReportQueryFiles.h"
#include "tests/sql/SqliteBooks.h"

namespace pstolvane1::sql {
namespace {

namespace fs = std::filesystem;

TEST(ReportQueries, AllAreWrittenForSqliteAndPrepared) {
  const Catalog catalog = ReferenceCatalog();
  PreparingBooks books(books::SqliteSchema());
  std::size_t selects = 0;
  for (const fs::path& file : QueryFiles(false)) {
    SCOPED_TRACE(file);
    for (const std::string& select : SelectsOf(file)) {
      ++selects;
      try {
        const Translation translation = TranslateForSqlite(select, catalog);
        EXPECT_EQ(books.WhyNotPrepared(translation.text), "") << translation.text;
        EXPECT_FALSE(translation.columns.empty());
      } catch (const Error& error) {
        ADD_FAILURE() << error.Description() << "\n" << select;
      }
    }
  }
  EXPECT_GT(selects, 250U);
}

// The file says above its text where and why.
std::string ReasonOf(const fs::path& file) {
  const std::string text = ContentOf(file);
  constexpr std::string_view kMark = "-- refused: ";
  const std::size_t from = text.find(kMark);
  if (from == std::string::npos) return "none";
  const std::size_t begin = from + kMark.size();
  return "line 1, " + text.substr(begin, text.find('\n', begin) - begin);
}

TEST(ReportQueries, ThoseThatTheServerRefusesAreRefusedWithTheirReason) {
  const Catalog catalog = ReferenceCatalog();
  const std::vector<fs::path> files = QueryFiles(true);
  EXPECT_GE(files.size(), 5U);
  for (const fs::path& file : files) {
    SCOPED_TRACE(file);
    const std::string text = SelectsOf(file).at(0);
    try {
      const Translation translation = TranslateForSqlite(text, catalog);
      ADD_FAILURE() << "accepted: " << translation.text;
    } catch (const Error& error) {
      EXPECT_EQ(error.Number(), ErrorNumber::kQueryRefused);
      EXPECT_EQ(error.Description(), ReasonOf(file));
    }
  }
}

}  // namespace
}  // namespace pstolvane1::sql
